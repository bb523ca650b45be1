#pragma once

namespace veldraw::sdk::ui::propertymanager {

/// Gives the mouse back the mode that it had, at the end of a scope. A mode that is not valid any more is left alone.
class MouseModeRestorer
{
public:
    MouseModeRestorer();
    ~MouseModeRestorer();
    MouseModeRestorer(MouseModeRestorer const&) = delete;
    MouseModeRestorer& operator=(MouseModeRestorer const&) = delete;

private:
    int const m_savedMode;
};

} // namespace veldraw::sdk::ui::propertymanager

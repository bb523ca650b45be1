#pragma once

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

/// While one exists, lists answer as they have last told their listeners and read nothing anew. Who shows a list to Qt, or takes rows from
/// there, needs rows that do not move between two signals.
class ReadingAsTold
{
public:
    ReadingAsTold() { ++s_count; }
    ~ReadingAsTold() { --s_count; }
    ReadingAsTold(ReadingAsTold const&) = delete;
    ReadingAsTold& operator=(ReadingAsTold const&) = delete;

    static bool isOn() { return s_count > 0; }

private:
    static int s_count; // on the user-interface thread only
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models

#pragma once

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

/// A value and what a person reads for it, UTF-8. Tables of these are constants that need no code at load, so any object
/// of static lifetime may read them.
template <typename T>
struct LabelledValue
{
    char const* label;
    T value;
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models

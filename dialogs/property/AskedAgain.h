#pragma once

namespace veldraw::sdk::ui::propertymanager {

/// What a question to the kernel answers. One that answers nothing (0, false) is asked once more: that is also what it answers when it
/// fails, and whoever goes by that would be wrong until the next change.
template <typename Question>
auto askedAgain(Question const& question)
{
    auto const answer = question();
    return answer ? answer : question();
}

} // namespace veldraw::sdk::ui::propertymanager

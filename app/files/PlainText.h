#pragma once

#include <string>
#include <vector>

namespace veldraw::app {

/// Text that may be Latin-1: it is where it is no valid UTF-8.
std::string asUtf8(std::string const& text);

/// The first characters of a text of any size, for messages; "..." tells that there are more. @param text UTF-8
std::string shortened(std::string const& text, std::size_t mostBytes);

/// A text without the blanks, tabs and line ends at its ends.
std::string trimmed(std::string const& text);

/// What stands between the blanks, tabs and line ends of a text.
std::vector<std::string> wordsOf(std::string const& text);

} // namespace veldraw::app

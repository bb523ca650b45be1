#pragma once

#include <string>

namespace veldraw::app {

/// A text as the value in a comment line of a table: in double quotes, with \n, \r, \t, \" and \\ inside, where it begins or ends with a blank or
/// begins with a quote, or has more than one line.
std::string commentValue(std::string const& text);

/// The text that a value stands for: the value itself, unless commentValue() has put it into quotes.
std::string textOfCommentValue(std::string const& value);

} // namespace veldraw::app

#pragma once

#include <set>
#include <string>

namespace veldraw::kernel {

/// @p text with the letters A to Z made small; other bytes of UTF-8 stay as they are.
std::string lowered(std::string text);

/// Order of two texts without regard to the case of A to Z: negative, 0 or positive.
int compareIgnoringCase(std::string const& left, std::string const& right);

/// The shortest text that reads back as the same number, with a decimal point in every locale.
std::string textOf(double number);
std::string textOf(float number);

/// @p text, or with a number behind it where that is taken, such as "Line (2)"; it is taken then.
std::string freeName(std::string const& text, std::set<std::string>& taken);

} // namespace veldraw::kernel

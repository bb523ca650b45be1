#pragma once

#include <string>

namespace veldraw::app {

/// The value of an XML attribute as it is meant: "a &lt; b" becomes "a < b". What is no entity that XML itself knows stays as it
/// stands.
/// @param text UTF-8
std::string xmlUnescaped(std::string const& text);

} // namespace veldraw::app

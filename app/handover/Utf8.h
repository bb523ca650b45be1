#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace veldraw::app {

/// Whether a text is UTF-8 as it should be: no character in more bytes than it needs, no halves of pairs.
bool isUtf8(std::string_view text);

/// The text itself where it is UTF-8; else its bytes are taken for Latin-1.
std::string madeUtf8(std::string const& text);

/// The same, as many whole characters of it as fit into a number of bytes.
std::string madeUtf8(std::string const& text, std::size_t mostBytes);

} // namespace veldraw::app

#pragma once

#include <cstddef>
#include <string>

namespace veldraw::app {

/// Length of what checkSumOf() gives.
constexpr std::size_t lengthOfSum = 8;

/// A sum over the bytes of a text (CRC-32), in hexadecimal digits: another one whenever a single bit is another one.
std::string checkSumOf(std::string const& text);

} // namespace veldraw::app

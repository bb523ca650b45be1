#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

namespace veldraw::kernel {

/// Pieces of what operations tell the message log.

/// "1 point", "2 points". @param nouns for more than one; empty where they end in s
std::string counted(std::int64_t count, std::string const& noun, std::string const& nouns = {});

/// A name in quotation marks.
std::string quoted(std::string const& name);

/// Names in quotation marks, up to a few of them.
std::string listed(std::vector<std::string> const& names);

/// A number as people say it, such as a time: with two digits.
std::string twoDigits(double number);

double secondsSince(std::chrono::steady_clock::time_point start);

} // namespace veldraw::kernel

#pragma once

#include <limits>

namespace veldraw::tests {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

} // namespace veldraw::tests

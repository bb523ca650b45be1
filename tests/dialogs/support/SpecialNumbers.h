#pragma once

#include <limits>

namespace veldraw::tests {

// What a field for numbers may be given and cannot show as digits.
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

} // namespace veldraw::tests

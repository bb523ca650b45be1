#pragma once

#include "kernel/base/Progress.h"

#include <cstdint>
#include <vector>

namespace veldraw::kernel {

/// Puts points in an order in which those of each leaf are near each other, and so are those of 2, 4, 8... leaves: the points are divided
/// at the median of the longest side of their box, again and again (J. L. Bentley, 1975). Only the last leaf may not be full.
/// @param axes 2 or 3; @param leafSize number of points of a leaf
/// @param places finite coordinates, one point after the other; they and @p points are put in the same order
/// @param progress all of it is for this. @throws Interrupted, std::bad_alloc
void dividePoints(std::size_t axes, std::size_t leafSize, double* places, std::vector<std::uint32_t>& points,
                  Progress& progress);

} // namespace veldraw::kernel

#pragma once

#include <array>
#include <cstddef>
#include <vector>

namespace veldraw::kernel {

/// Coordinates of points, an array for each axis; that of a third axis is empty in 2D.
using PointColumns = std::array<std::vector<double>, 3>;

/// Squared distances from a target to @p count points from @p first on.
void measureSquares(PointColumns const& points, std::size_t first, std::size_t count, double const* target,
                    double* squares);

} // namespace veldraw::kernel

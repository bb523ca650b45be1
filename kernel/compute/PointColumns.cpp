#include "kernel/compute/PointColumns.h"

#include "kernel/compute/WideLanes.h"

#include <algorithm>

namespace veldraw::kernel {

namespace {

VELDRAW_WIDE_LANES("avx512f", "avx2")
void addSquares(double const* coordinates, double at, std::size_t count, double* squares)
{
    for (std::size_t point = 0; point < count; ++point) {
        double const difference = coordinates[point] - at;
        squares[point] += difference * difference;
    }
}

} // namespace

void measureSquares(PointColumns const& points, std::size_t first, std::size_t count, double const* target,
                    double* squares)
{
    std::fill_n(squares, count, 0.0);
    for (std::size_t axis = 0; axis < points.size() && !points[axis].empty(); ++axis) {
        addSquares(points[axis].data() + first, target[axis], count, squares);
    }
}

} // namespace veldraw::kernel

#include "kernel/compute/PointColumns.h"

#include "kernel/compute/WideLanes.h"

namespace veldraw::kernel {

namespace {

VELDRAW_WIDE_LANES("avx512f", "avx2")
void squaresInPlane(double const* x, double const* y, double const* target, std::size_t count, double* squares)
{
    double const atX = target[0];
    double const atY = target[1];
    for (std::size_t point = 0; point < count; ++point) {
        double const dx = x[point] - atX;
        double const dy = y[point] - atY;
        squares[point] = dx * dx + dy * dy;
    }
}

VELDRAW_WIDE_LANES("avx512f", "avx2")
void squaresInSpace(double const* x, double const* y, double const* z, double const* target, std::size_t count,
                    double* squares)
{
    double const atX = target[0];
    double const atY = target[1];
    double const atZ = target[2];
    for (std::size_t point = 0; point < count; ++point) {
        double const dx = x[point] - atX;
        double const dy = y[point] - atY;
        double const dz = z[point] - atZ;
        squares[point] = dx * dx + dy * dy + dz * dz;
    }
}

} // namespace

void measureSquares(PointColumns const& points, std::size_t first, std::size_t count, double const* target,
                    double* squares)
{
    double const* const x = points[0].data() + first;
    double const* const y = points[1].data() + first;
    if (points[2].empty()) {
        squaresInPlane(x, y, target, count, squares);
    } else {
        squaresInSpace(x, y, points[2].data() + first, target, count, squares);
    }
}

} // namespace veldraw::kernel

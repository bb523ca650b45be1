#include "kernel/compute/PolarForm.h"

#include "kernel/compute/WideLanes.h"

#include <cmath>

namespace veldraw::kernel {

namespace {

/// The angle in degrees of a slope up to tan(pi / 8): the polynomial that equals the arctangent at the zeros of a Chebyshev
/// polynomial of the square, with an error below 1e-17.
VELDRAW_INLINE double smallAngle(double slope)
{
    double const square = slope * slope;
    double series = 0.015113765096600925;
    series = series * square - 0.03338782450121195;
    series = series * square + 0.04499500728984032;
    series = series * square - 0.05217312574061591;
    series = series * square + 0.05876834004614161;
    series = series * square - 0.06666205259976526;
    series = series * square + 0.07692281099937744;
    series = series * square - 0.09090908059031191;
    series = series * square + 0.11111111085322109;
    series = series * square - 0.1428571428532971;
    series = series * square + 0.19999999999997015;
    series = series * square - 0.33333333333333326;
    return 57.295779513082320877 * (slope + slope * (series * square));
}

/// The angle of a point in the plane, brought to the first eighth of a turn and, from there, to half of that.
VELDRAW_INLINE double angleOf(double x, double y)
{
    double const width = std::fabs(x);
    double const height = std::fabs(y);
    bool const isHigh = height > width;
    double const longer = isHigh ? height : width;
    double const shorter = isHigh ? width : height;
    bool const isSteep = shorter > 0.41421356237309503 * longer; // tan(pi / 8)
    double const rise = isSteep ? shorter - longer : shorter;
    double const run = isSteep ? shorter + longer : longer;
    double angle = smallAngle(rise / (run > 0.0 ? run : 1.0));
    angle = isSteep ? 45.0 + angle : angle;
    angle = isHigh ? 90.0 - angle : angle;
    angle = x < 0.0 ? 180.0 - angle : angle;
    return y < 0.0 && angle < 180.0 ? 0.0 - angle : angle; // never -180, and 0 without a sign
}

VELDRAW_WIDE_LANES("avx512f", "avx2")
void convert(double const* numbers, std::size_t count, double* magnitudes, double* degrees)
{
    for (std::size_t at = 0; at < count; ++at) {
        double const x = numbers[2 * at];
        double const y = numbers[2 * at + 1];
        magnitudes[at] = std::sqrt(x * x + y * y);
        degrees[at] = angleOf(x, y);
    }
}

} // namespace

void toPolar(std::complex<double> const* numbers, std::size_t count, double* magnitudes, double* degrees)
{
    convert(reinterpret_cast<double const*>(numbers), count, magnitudes, degrees);
}

} // namespace veldraw::kernel

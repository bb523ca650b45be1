#include "kernel/compute/PlaneGeometry.h"

#include <algorithm>
#include <cmath>

namespace veldraw::kernel {

namespace {

PlanePlace difference(PlanePlace const& to, PlanePlace const& from)
{
    return {to[0] - from[0], to[1] - from[1]};
}

/// Positive where the second direction is to the left of the first.
double crossProduct(PlanePlace const& first, PlanePlace const& second)
{
    return first[0] * second[1] - first[1] * second[0];
}

} // namespace

double distanceBetween(PlanePlace const& a, PlanePlace const& b)
{
    return std::hypot(b[0] - a[0], b[1] - a[1]);
}

/// r / R = 2 (2 A)^2 / ((a + b + c) a b c) for the area A.
double roundness(PlanePlace const& a, PlanePlace const& b, PlanePlace const& c)
{
    std::array<double, 3> sides{distanceBetween(b, c), distanceBetween(c, a), distanceBetween(a, b)};
    double const longest = *std::max_element(sides.begin(), sides.end()); // products of lengths may overflow
    auto const scaled = [&](PlanePlace const& place) {
        return PlanePlace{(place[0] - a[0]) / longest, (place[1] - a[1]) / longest};
    };
    double const area = crossProduct(scaled(b), scaled(c)); // twice
    for (double& side : sides) {
        side /= longest;
    }
    return 2 * area * area / ((sides[0] + sides[1] + sides[2]) * sides[0] * sides[1] * sides[2]);
}

double nearestShare(PlanePlace const& place, PlanePlace const& a, PlanePlace const& b)
{
    double const length = distanceBetween(a, b);
    double const along = (place[0] - a[0]) * ((b[0] - a[0]) / length) + (place[1] - a[1]) * ((b[1] - a[1]) / length);
    return std::clamp(along / length, 0.0, 1.0);
}

double distanceToLine(PlanePlace const& place, PlanePlace const& a, PlanePlace const& b)
{
    double const share = nearestShare(place, a, b);
    return distanceBetween(place, {a[0] + share * (b[0] - a[0]), a[1] + share * (b[1] - a[1])});
}

std::array<double, 3> cornerShares(PlanePlace const& place, std::array<PlanePlace, 3> const& corners)
{
    std::array<PlanePlace, 3> sides{};
    double largest = 0.0;
    for (std::size_t corner = 0; corner < 3; ++corner) {
        sides[corner] = difference(corners[corner], place);
        largest = std::max({largest, std::fabs(sides[corner][0]), std::fabs(sides[corner][1])});
    }
    int const exponent = largest > 0.0 ? std::ilogb(largest) : 0;
    for (PlanePlace& side : sides) { // by a power of two, so that products are neither infinite nor vanish
        side = {std::scalbn(side[0], -exponent), std::scalbn(side[1], -exponent)};
    }
    std::array<double, 3> shares{};
    double sum = 0.0;
    for (std::size_t corner = 0; corner < 3; ++corner) {
        double const area = crossProduct(sides[(corner + 1) % 3], sides[(corner + 2) % 3]);
        shares[corner] = std::max(area, 0.0); // rounding can turn a flat triangle around
        sum += shares[corner];
    }
    if (!(sum > 0.0)) {
        return {1.0, 0.0, 0.0};
    }
    for (double& share : shares) {
        share /= sum;
    }
    return shares;
}

} // namespace veldraw::kernel

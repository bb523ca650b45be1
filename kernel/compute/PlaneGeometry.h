#pragma once

#include <array>

namespace veldraw::kernel {

/// A place in the plane: X and Y.
using PlanePlace = std::array<double, 2>;

double distanceBetween(PlanePlace const& a, PlanePlace const& b);

/// The inradius of a triangle divided by its circumradius: 0.5 where all sides are equal, 0 for one that is flat.
double roundness(PlanePlace const& a, PlanePlace const& b, PlanePlace const& c);

/// The share of the way from @p a to @p b, 0 to 1, at which the place on it is that is nearest to @p place. The two are different.
double nearestShare(PlanePlace const& place, PlanePlace const& a, PlanePlace const& b);

/// The distance to the nearest place on the way from @p a to @p b.
double distanceToLine(PlanePlace const& place, PlanePlace const& a, PlanePlace const& b);

/// The shares of the corners of a triangle, against the clock's sense, in a linear value at a place in it; their sum is 1. That of
/// the first is all where the triangle is too flat to tell the corners apart.
std::array<double, 3> cornerShares(PlanePlace const& place, std::array<PlanePlace, 3> const& corners);

} // namespace veldraw::kernel

#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <limits>

namespace veldraw::kernel {

/// A place or a direction in space; the third number is 0 in the plane.
using Point = std::array<double, 3>;

/// A box along the axes, with its border. At first it has nothing in it.
struct Box
{
    static constexpr double infinity = std::numeric_limits<double>::infinity();

    Point low{infinity, infinity, infinity};
    Point high{-infinity, -infinity, -infinity};

    /// Widens the box to have @p point in it, whose numbers are finite.
    void add(Point const& point)
    {
        for (std::size_t axis = 0; axis < 3; ++axis) {
            low[axis] = std::min(low[axis], point[axis]);
            high[axis] = std::max(high[axis], point[axis]);
        }
    }

    /// Widens the box to have another one in it.
    void add(Box const& other)
    {
        for (std::size_t axis = 0; axis < 3; ++axis) {
            low[axis] = std::min(low[axis], other.low[axis]);
            high[axis] = std::max(high[axis], other.high[axis]);
        }
    }

    bool contains(Point const& point) const
    {
        // Without a branch for each number: which of them fails cannot be foreseen.
        return ((point[0] >= low[0]) & (point[0] <= high[0]) & (point[1] >= low[1]) & (point[1] <= high[1]) &
                (point[2] >= low[2]) & (point[2] <= high[2])) != 0;
    }

    /// Whether the boxes have a point in common.
    bool meets(Box const& other) const
    {
        return low[0] <= other.high[0] && high[0] >= other.low[0] && low[1] <= other.high[1] &&
               high[1] >= other.low[1] && low[2] <= other.high[2] && high[2] >= other.low[2];
    }
};

} // namespace veldraw::kernel

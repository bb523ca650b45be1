#pragma once

#include "platform/vdsdkbase/VelUtilTypes.h"

#include <array>
#include <cstdint>

namespace veldraw::kernel {

/// Where the values of a grid stand: that at (i, j, k) in the slot that is the sum of each index times its stride.
struct ValueGrid
{
    std::array<std::int64_t, 3> counts;
    std::array<std::int64_t, 3> strides; ///< the first one is 1
};

/// Indices from the first to before the last.
struct IndexSpan
{
    std::int64_t first = 0;
    std::int64_t last = 0;

    std::int64_t count() const { return last - first; }
    bool contains(std::int64_t index) const { return index >= first && index < last; }
};

/// A part of a grid: that of each axis.
using GridSpans = std::array<IndexSpan, 3>;

/// An axis of a grid whose values are smoothed.
struct GridAxis
{
    std::int64_t count = 1;
    std::int64_t stride = 1;
    bool movesEnds = false; ///< whether the values at the ends follow the inner ones; else they are held

    /// An axis with one value has no ends and no neighbours.
    bool hasEnds() const { return count > 1; }
    bool isEnd(std::int64_t index) const { return hasEnds() && (index == 0 || index == count - 1); }

    /// The indices that are not at the ends.
    IndexSpan inside() const { return hasEnds() ? IndexSpan{1, count - 1} : IndexSpan{0, count}; }

    /// The indices that are not held.
    IndexSpan moving() const { return movesEnds ? IndexSpan{0, count} : inside(); }
};

/// The axes of a grid, in the order in which planes are made up: rows along the first one; if there is only one axis more with
/// neighbours, it is the last.
struct GridAxes
{
    GridAxes(ValueGrid const& grid, BoundaryCondition_e boundary);

    std::array<GridAxis, 3> axes;
    BoundaryCondition_e condition;

    std::int64_t valueCount() const { return axes[0].count * axes[1].count * axes[2].count; }

    /// Number of values that are held, holes among them.
    std::int64_t heldCount() const;

    /// Whether there is a value that is at no end of an axis, so that something can change.
    bool hasInside() const;
};

} // namespace veldraw::kernel

#include "kernel/compute/GridAxes.h"

#include <algorithm>

namespace veldraw::kernel {

namespace {

/// Values along an axis from which on each end has as many inner values beside it as it follows from.
std::int64_t leastCount(BoundaryCondition_e condition)
{
    return condition == BoundaryCondition_SecondOrder ? 4 : 3;
}

} // namespace

GridAxes::GridAxes(ValueGrid const& grid, BoundaryCondition_e boundary)
    : condition(boundary)
{
    for (std::size_t axis = 0; axis < 3; ++axis) {
        std::int64_t const count = grid.counts[axis];
        bool const movesEnds = condition != BoundaryCondition_Fixed && count >= leastCount(condition);
        axes[axis] = {count, grid.strides[axis], movesEnds};
    }
    if (!axes[2].hasEnds()) {
        std::swap(axes[1], axes[2]);
    }
}

std::int64_t GridAxes::heldCount() const
{
    std::int64_t moving = 1;
    for (GridAxis const& axis : axes) {
        moving *= axis.moving().count();
    }
    return valueCount() - moving;
}

bool GridAxes::hasInside() const
{
    bool const hasNeighbors =
        std::any_of(axes.begin(), axes.end(), [](GridAxis const& axis) { return axis.hasEnds(); });
    return hasNeighbors &&
           std::all_of(axes.begin(), axes.end(), [](GridAxis const& axis) { return axis.inside().count() > 0; });
}

} // namespace veldraw::kernel

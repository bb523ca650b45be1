#include "kernel/mesh/PointMeans.h"

#include "kernel/base/Parallel.h"
#include "kernel/base/ZeroedArray.h"
#include "kernel/compute/ValueBlock.h"
#include "kernel/data/Zone.h"
#include "kernel/storage/CellSlots.h"

#include <cmath>
#include <limits>
#include <utility>

namespace veldraw::kernel {

namespace {

/// Calls @p body (slot, points, number of points) for each cell with its points.
template <typename Body>
void forListedCells(Connectivity const& cells, Body const& body)
{
    for (std::int64_t cell = 0; cell < cells.cellCount; ++cell) {
        std::int64_t const first = cells.offsets[cell];
        body(cell, cells.indices + first, static_cast<std::size_t>(cells.offsets[cell + 1] - first));
    }
}

} // namespace

std::shared_ptr<Buffer const> meansAtPoints(ZoneType_e type, ZoneDimensions const& dimensions, Buffer const& values,
                                            Progress const& progress)
{
    std::int64_t const points = Zone({}, type, dimensions.i, dimensions.j, dimensions.k).pointCount();
    ZeroedArray<double> sums(static_cast<std::size_t>(points));
    ZeroedArray<std::uint32_t> counts(static_cast<std::size_t>(points));
    ZeroedArray<std::int64_t> lastCells(
        static_cast<std::size_t>(points)); // one more than the slot of the last cell that counted
    auto const hidden = dimensions.blanking ? dimensions.blanking->hidden(ValueLocation_CellCentered) : nullptr;
    auto const add = [&](std::int64_t slot, std::int64_t const* corners, std::size_t count) {
        if (slot % blockSize == 0) {
            progress.check();
        }
        if (hidden && hidden->contains(slot)) {
            return;
        }
        double const value = values.value(slot);
        if (!std::isfinite(value)) {
            return;
        }
        for (std::size_t at = 0; at < count; ++at) {
            auto const point = static_cast<std::size_t>(corners[at]);
            if (std::exchange(lastCells[point], slot + 1) != slot + 1) { // a collapsed cell has a point several times
                sums[point] += value;
                ++counts[point];
            }
        }
    };
    if (type == ZoneType_Ordered) {
        forOrderedCells(dimensions.i, dimensions.j, dimensions.k, add);
    } else if (dimensions.connectivity) {
        forListedCells(*dimensions.connectivity, add);
    }
    std::shared_ptr<Buffer> const result = Buffer::allocate(computedType(values.type()), points);
    parallelFor(points, [&](std::int64_t first, std::int64_t last, std::int64_t) {
        progress.check();
        for (std::int64_t point = first; point < last; ++point) {
            auto const at = static_cast<std::size_t>(point);
            double const count = counts[at];
            result->setValue(point, counts[at] > 0 ? sums[at] / count : std::numeric_limits<double>::quiet_NaN());
        }
    });
    return result;
}

} // namespace veldraw::kernel

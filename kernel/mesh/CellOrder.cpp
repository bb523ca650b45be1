#include "kernel/mesh/CellOrder.h"

#include "kernel/compute/ValueBlock.h"

#include <atomic>
#include <vector>

namespace veldraw::kernel {

namespace {

constexpr std::int64_t fewCells = 10000; // have place in the cache
constexpr unsigned binsAlong = 32;
constexpr std::size_t gridSize = std::size_t{binsAlong} * binsAlong * binsAlong;

/// The bin of a place, in a grid over the whole box; of places outside, that at the border.
unsigned binOf(Point const& place, Box const& box)
{
    unsigned bin = 0;
    for (std::size_t axis = 3; axis-- > 0;) {
        double const share = (place[axis] - box.low[axis]) / (box.high[axis] - box.low[axis]) * binsAlong;
        bin = bin * binsAlong + (share > 0 ? static_cast<unsigned>(std::min(share, binsAlong - 1.0)) : 0U);
    }
    return bin;
}

} // namespace

CellOrder::CellOrder(ZoneCells const& cells, Box const& box, Progress& progress)
{
    std::int64_t const count = cells.slotCount();
    if (cells.isOrdered() || count <= fewCells) {
        return;
    }
    auto const forBins = [&](auto const& body) { // twice, so that they need no memory
        forEachBlock(count, progress, [&](std::int64_t first, std::int64_t size) {
            ZoneCells::Corners room;
            for (std::int64_t slot = first; slot < first + size; ++slot) {
                Cell const cell = cells.cell(slot, room);
                body(slot, cell.cornerCount == 0 ? 0U : binOf(cells.point(cell.corners[0]), box));
            }
        });
    };
    std::vector<std::atomic<std::uint32_t>> ends(gridSize); // at first numbers of cells, then where the next one goes
    progress.setTotal(2 * count);
    forBins([&](std::int64_t, unsigned bin) { ends[bin].fetch_add(1, std::memory_order_relaxed); });
    std::uint32_t next = 0;
    for (std::atomic<std::uint32_t>& end : ends) {
        next += end.exchange(next, std::memory_order_relaxed);
    }
    m_slots = ZeroedArray<std::uint32_t>(static_cast<std::size_t>(count));
    forBins([&](std::int64_t slot, unsigned bin) {
        m_slots[ends[bin].fetch_add(1, std::memory_order_relaxed)] = static_cast<std::uint32_t>(slot);
    });
}

} // namespace veldraw::kernel

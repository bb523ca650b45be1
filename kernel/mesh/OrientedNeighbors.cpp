#include "kernel/mesh/OrientedNeighbors.h"

#include "kernel/base/CheckedLoop.h"
#include "kernel/base/RaiseTo.h"

namespace veldraw::kernel {

namespace {

constexpr std::int64_t mostNeighbors = 32; // more take longer to compare with each other than to sort

/// For each place those of the points to which the surfaces go from there.
RawLists nextPoints(CellParts const& cells, std::int64_t pointCount, PointOrder const& order,
                    ZeroedArray<ListSpan> const& spans, std::int64_t cellsOfEach, RoomBeside const& room,
                    Progress const& progress)
{
    auto const forEachEdge = [&](std::int64_t group, Watch& watch, auto const& add) {
        std::int64_t const last = std::min((group + 1) * cellsOfEach, cells.cellCount());
        for (std::int64_t cell = group * cellsOfEach; cell < last; ++cell) {
            auto const [begin, end] = cells.corners(cell);
            watch.count(end - begin);
            for (std::int64_t const* corner = begin; corner < end; ++corner) {
                std::int64_t const next = corner + 1 == end ? *begin : corner[1];
                if (next != *corner) {
                    add(order.placeOf(*corner), 1, [&](std::uint32_t* entry) { *entry = order.placeOf(next); });
                }
            }
        }
    };
    return fillLists(pointCount, spans, room, progress, forEachEdge);
}

/// The neighbors of a place.
struct Neighbors
{
    Neighbors(NeighborLists const& lists, std::int64_t place)
        : begin(lists.neighbors.begin() + lists.starts[static_cast<std::size_t>(place)])
        , end(lists.neighbors.begin() + lists.starts[static_cast<std::size_t>(place) + 1])
    {
    }

    bool areMany() const { return end - begin > mostNeighbors; }
    bool contain(std::int64_t place) const { return std::find(begin, end, static_cast<std::uint32_t>(place)) != end; }

    bool areDifferent() const
    {
        for (std::uint32_t const* at = begin; at < end; ++at) {
            if (std::find(at + 1, end, *at) != end) {
                return false;
            }
        }
        return true;
    }

    std::uint32_t const* begin;
    std::uint32_t const* end;
};

/// Marks the places from which an edge goes along which nobody comes back. As many edges come to a place as go from it, so these are all at
/// the border. @return whether no edge is gone along twice in a direction
bool markBorder(NeighborLists& lists, ZeroedArray<bool>& border, Progress const& progress)
{
    std::atomic<bool> isOriented{true};
    std::atomic<std::int64_t> reach{0};
    parallelFor(
        lists.count(),
        [&](std::int64_t first, std::int64_t last, std::int64_t) {
            Watch watch(progress);
            std::int64_t farthest = 0;
            for (std::int64_t place = first; place < last && isOriented.load(std::memory_order_relaxed); ++place) {
                Neighbors const ahead(lists, place);
                watch.count(ahead.end - ahead.begin);
                bool isClear = !ahead.areMany() && ahead.areDifferent();
                for (std::uint32_t const* neighbor = ahead.begin; isClear && neighbor < ahead.end; ++neighbor) {
                    Neighbors const back(lists, *neighbor);
                    isClear = !back.areMany();
                    farthest = std::max(farthest, std::abs(place - std::int64_t{*neighbor}));
                    if (isClear && !back.contain(place)) {
                        border[static_cast<std::size_t>(place)] = true;
                    }
                }
                if (!isClear) {
                    isOriented.store(false, std::memory_order_relaxed);
                }
            }
            raiseTo(farthest, reach);
        },
        grainOfCheckedLoop);
    lists.reach = reach;
    return isOriented;
}

} // namespace

std::optional<NeighborLists> orientedNeighbors(CellParts const& cells, std::int64_t pointCount, PointOrder const& order,
                                               ZeroedArray<ListSpan> const& spans, std::int64_t cellsOfEach,
                                               RoomBeside const& room, Progress const& progress)
{
    RawLists next = nextPoints(cells, pointCount, order, spans, cellsOfEach, room, progress);
    NeighborLists lists;
    lists.starts = std::move(next.starts);
    lists.neighbors = std::move(next.neighbors);
    ZeroedArray<bool> border(static_cast<std::size_t>(pointCount));
    if (!markBorder(lists, border, progress)) {
        return std::nullopt;
    }
    std::atomic<std::int64_t> held{0};
    forEachChecked(pointCount, progress, [&](std::int64_t place) {
        if (border[static_cast<std::size_t>(place)]) {
            std::uint32_t* const neighbors = lists.neighbors.begin();
            auto const [start, end] = std::pair(lists.starts[static_cast<std::size_t>(place)],
                                                lists.starts[static_cast<std::size_t>(place) + 1]);
            std::fill(neighbors + start, neighbors + end, static_cast<std::uint32_t>(place));
            held.fetch_add(1, std::memory_order_relaxed);
        }
    });
    lists.held = held;
    lists.order = order.points(room, progress);
    return lists;
}

} // namespace veldraw::kernel

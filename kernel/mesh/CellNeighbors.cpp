#include "kernel/mesh/CellNeighbors.h"

#include "kernel/base/CheckedLoop.h"
#include "kernel/compute/ListStarts.h"
#include "kernel/mesh/PointOrder.h"
#include "kernel/mesh/SideMatch.h"

#include <algorithm>
#include <limits>
#include <stdexcept>

namespace veldraw::kernel {

namespace {

using Flags = ZeroedArray<std::atomic<bool>>;

/// Neighbours as they come up, some more than once.
struct RawLists
{
    ZeroedArray<std::int64_t> starts;
    ZeroedArray<std::uint32_t> neighbors;

    std::uint32_t* begin(std::int64_t list) { return neighbors.begin() + starts[static_cast<std::size_t>(list)]; }
    std::uint32_t* end(std::int64_t list) { return begin(list + 1); }
};

/// What all steps need.
struct Work
{
    CellParts const& cells;
    std::int64_t pointCount;
    SmoothingValues const& values;
    RoomBeside room;
    Progress& progress;
};

Work prepare(CellParts const& cells, std::int64_t pointCount, SmoothingValues const& values, Progress& progress)
{
    for (auto const& [count, things] : {std::pair(pointCount, "points"), {cells.cellCount(), "cells"}}) {
        if (count >= std::numeric_limits<std::uint32_t>::max()) {
            throw std::runtime_error(std::string("The zone has too many ") + things + " to be smoothed.");
        }
    }
    auto const bytesOfFlags = static_cast<double>(std::max(pointCount, cells.cellCount()));
    return {cells, pointCount, values, RoomBeside(values.promisedBytes() + bytesOfFlags), progress};
}

/// @param forEachEntry calls its argument, on all threads and when called twice the same way, with a list, a number of neighbours in
///        it, and a function that writes them
template <typename ForEachEntry>
RawLists makeLists(Work const& work, std::int64_t count, ForEachEntry const& forEachEntry)
{
    ListStarts lists(count, work.room);
    forEachEntry([&lists](std::uint32_t list, std::int64_t entries, auto const&) { lists.count(list, entries); });
    RawLists raw;
    raw.neighbors = work.room.array<std::uint32_t>(lists.close(work.progress));
    forEachEntry([&](std::uint32_t list, std::int64_t entries, auto const& write) {
        write(raw.neighbors.begin() + lists.next(list, entries));
    });
    raw.starts = lists.take(work.progress);
    return raw;
}

/// The ends of all edges, by places.
RawLists edgesOf(Work const& work, PointOrder const& order)
{
    return makeLists(work, work.pointCount, [&](auto const& add) {
        forEachWatched(work.cells.cellCount(), work.progress, [&](std::int64_t cell, Watch& watch) {
            work.cells.forEachEdge(cell, [&](std::int64_t first, std::int64_t second) {
                watch.count();
                if (first != second) {
                    std::uint32_t const one = order.placeOf(first);
                    std::uint32_t const other = order.placeOf(second);
                    add(one, 1, [other](std::uint32_t* entry) { *entry = other; });
                    add(other, 1, [one](std::uint32_t* entry) { *entry = one; });
                }
            });
        });
    });
}

/// The same of surfaces, where each corner has two edges, which is quicker.
RawLists cornersOf(Work const& work, PointOrder const& order)
{
    return makeLists(work, work.pointCount, [&](auto const& add) {
        forEachWatched(work.cells.cellCount(), work.progress, [&](std::int64_t cell, Watch& watch) {
            auto const [begin, end] = work.cells.corners(cell);
            for (std::int64_t const* corner = begin; corner < end; ++corner) {
                watch.count();
                std::int64_t const before = corner == begin ? end[-1] : corner[-1];
                std::int64_t const after = corner + 1 == end ? *begin : corner[1];
                std::array<std::uint32_t, 2> neighbors{};
                std::size_t entries = 0;
                for (std::int64_t const neighbor : {before, after}) {
                    if (neighbor != *corner) {
                        neighbors[entries++] = order.placeOf(neighbor);
                    }
                }
                add(order.placeOf(*corner), static_cast<std::int64_t>(entries),
                    [&](std::uint32_t* entry) { std::copy_n(neighbors.begin(), entries, entry); });
            }
        });
    });
}

/// Whether a surface has each of its edges once: it comes to at least three points, and to none of them again after others.
bool hasEdgesOnce(std::int64_t const* begin, std::int64_t const* end, Watch& watch)
{
    if (end - begin == 3) { // the most frequent ones
        watch.count(3);
        return begin[0] != begin[1] && begin[1] != begin[2] && begin[2] != begin[0];
    }
    std::array<std::int64_t, 8> few{};
    std::vector<std::int64_t> many;
    bool const areMany = end - begin > static_cast<std::ptrdiff_t>(few.size());
    if (areMany) {
        many.resize(static_cast<std::size_t>(end - begin));
    }
    std::int64_t* const points = areMany ? many.data() : few.data();
    std::int64_t* last = points;
    for (std::int64_t const* corner = begin; corner < end; ++corner) {
        watch.count();
        if (*corner != (corner == begin ? end[-1] : corner[-1])) {
            *last++ = *corner;
        }
    }
    sortWatched(points, last, watch);
    return last - points >= 3 && std::adjacent_find(points, last) == last;
}

bool haveEdgesOnce(Work const& work)
{
    std::atomic<bool> areOnce{true};
    forEachWatched(work.cells.cellCount(), work.progress, [&](std::int64_t cell, Watch& watch) {
        auto const [begin, end] = work.cells.corners(cell);
        if (areOnce.load(std::memory_order_relaxed) && !hasEdgesOnce(begin, end, watch)) {
            areOnce.store(false, std::memory_order_relaxed);
        }
    });
    return areOnce;
}

/// Whether a neighbour comes up once in a sorted list: in the list of a surface's corner the edge is one that one cell alone has.
bool hasLonely(std::uint32_t const* begin, std::uint32_t const* end, Watch& watch)
{
    for (std::uint32_t const* at = begin; at < end;) {
        std::uint32_t const* next = at + 1;
        while (next < end && *next == *at) {
            ++next;
        }
        watch.count(next - at);
        if (next - at == 1) {
            return true;
        }
        at = next;
    }
    return false;
}

void raiseTo(std::int64_t value, std::atomic<std::int64_t>& highest)
{
    std::int64_t known = highest.load(std::memory_order_relaxed);
    while (value > known && !highest.compare_exchange_weak(known, value, std::memory_order_relaxed)) {
    }
}

/// Replaces each number by the sum of all up to it. @return the whole sum
std::int64_t sumUp(ZeroedArray<std::int64_t>& numbers, Progress const& progress)
{
    std::int64_t sum = 0;
    for (std::size_t at = 0; at < numbers.size(); ++at) {
        if (at % 65536 == 0) {
            progress.check();
        }
        sum += numbers[at];
        numbers[at] = sum;
    }
    return sum;
}

/// Drops what comes up again from a sorted list, and holes. @return the end of what is left
template <typename IsHole>
std::uint32_t* dropRepeatedAndHoles(std::uint32_t* begin, std::uint32_t const* end, IsHole const& isHole, Watch& watch)
{
    std::uint32_t* kept = begin;
    for (std::uint32_t const* at = begin; at < end;) {
        std::uint32_t const neighbor = *at;
        for (; at < end && *at == neighbor; ++at) {
            watch.count();
        }
        if (!isHole(neighbor)) {
            *kept++ = neighbor;
        }
    }
    return kept;
}

/// Makes lists of the neighbours that count.
/// @param order the value at each place; empty: the same
/// @param isBorder (value, begin, end, watch) whether a value is at the border, whose neighbours stand sorted between these
template <typename IsBorder>
NeighborLists finish(Work const& work, RawLists& raw, ZeroedArray<std::uint32_t> order, IsBorder const& isBorder)
{
    auto const count = static_cast<std::int64_t>(raw.starts.size()) - 1;
    auto const valueAt = [&order](std::int64_t place) {
        return order.isEmpty() ? place : std::int64_t{order[static_cast<std::size_t>(place)]};
    };
    auto const isHole = [&](std::int64_t place) {
        return work.values.hasHoles() && work.values.isHole(valueAt(place));
    };
    NeighborLists lists;
    lists.starts = work.room.array<std::int64_t>(count + 1);
    std::atomic<std::int64_t> held{0};
    forEachWatched(count, work.progress, [&](std::int64_t place, Watch& watch) {
        std::uint32_t* const begin = raw.begin(place);
        std::uint32_t* const end = raw.end(place);
        sortWatched(begin, end, watch);
        bool const isOut = isHole(place);
        bool const isHeld = isBorder(valueAt(place), begin, end, watch);
        std::int64_t const left = dropRepeatedAndHoles(begin, end, isHole, watch) - begin;
        lists.starts[static_cast<std::size_t>(place) + 1] = isOut || isHeld ? 0 : left;
        if (isHeld && !isOut) {
            held.fetch_add(1, std::memory_order_relaxed);
        }
    });
    lists.neighbors = work.room.array<std::uint32_t>(sumUp(lists.starts, work.progress));
    std::atomic<std::int64_t> reach{0};
    forEachWatched(count, work.progress, [&](std::int64_t place, Watch& watch) {
        std::int64_t const start = lists.starts[static_cast<std::size_t>(place)];
        std::int64_t const length = lists.starts[static_cast<std::size_t>(place) + 1] - start;
        if (length > 0) {
            std::uint32_t const* const from = raw.begin(place);
            watch.count(length);
            std::copy_n(from, length, lists.neighbors.begin() + start);
            raiseTo(std::max(place - std::int64_t{from[0]}, std::int64_t{from[length - 1]} - place), reach);
        }
    });
    lists.held = held;
    lists.reach = reach;
    lists.order = std::move(order);
    return lists;
}

/// Lists in which it is marked which values are at the border.
NeighborLists finish(Work const& work, RawLists& raw, ZeroedArray<std::uint32_t> order, Flags const& border)
{
    return finish(work, raw, std::move(order),
                  [&border](std::int64_t value, std::uint32_t const*, std::uint32_t const*, Watch&) {
                      return border[static_cast<std::size_t>(value)].load(std::memory_order_relaxed);
                  });
}

/// The cells that have a side in common with others, for each such side their number and they.
using SharedSides = std::vector<std::vector<std::uint32_t>>;

SharedSides sharedSides(Work const& work, Flags& border)
{
    SideMatch const sides(work.cells, work.pointCount, work.room, work.progress);
    SharedSides shared(static_cast<std::size_t>(parallelChunkCount(work.pointCount)));
    double bytes = 0;
    for (std::size_t chunk = 0; chunk < shared.size(); ++chunk) {
        // Two cells and their number are the most for two sides.
        std::int64_t const most = sides.sidesOfChunk(static_cast<std::int64_t>(chunk)) / 2 * 3 + 1;
        bytes += static_cast<double>(most) * sizeof(std::uint32_t);
        work.room.require(bytes);
        shared[chunk].reserve(static_cast<std::size_t>(most));
    }
    sides.forEach(
        [&](SideMatch::Match const& match, std::int64_t chunk) {
            if (match.cells.size() == 1) {
                border[match.cells.front()].store(true, std::memory_order_relaxed);
                return;
            }
            std::vector<std::uint32_t>& here = shared[static_cast<std::size_t>(chunk)];
            here.push_back(static_cast<std::uint32_t>(match.cells.size()));
            here.insert(here.end(), match.cells.begin(), match.cells.end());
        },
        work.progress);
    return shared;
}

/// For each cell the others at its sides.
RawLists cellsBeside(Work const& work, SharedSides const& shared)
{
    return makeLists(work, work.cells.cellCount(), [&](auto const& add) {
        forEachInParallel(static_cast<std::int64_t>(shared.size()), [&](std::int64_t chunk) {
            Watch watch(work.progress);
            std::vector<std::uint32_t> const& here = shared[static_cast<std::size_t>(chunk)];
            for (std::uint32_t const* at = here.data(); at < here.data() + here.size();) {
                std::uint32_t const* const begin = at + 1;
                std::uint32_t const* const end = begin + *at;
                for (std::uint32_t const* cell = begin; cell < end; ++cell) {
                    watch.count();
                    add(*cell, end - begin - 1, [&](std::uint32_t* others) {
                        watch.count(end - begin);
                        std::copy(cell + 1, end, std::copy(begin, cell, others));
                    });
                }
                at = end;
            }
        });
    });
}

} // namespace

NeighborLists neighborsOfPoints(CellParts const& cells, std::int64_t pointCount, SmoothingValues const& values,
                                Progress& progress)
{
    Work const work = prepare(cells, pointCount, values, progress);
    progress.setTotal(3); // steps that take about as long
    PointOrder const order(cells, pointCount, work.room, progress);
    if (cells.areSurfaces() && haveEdgesOnce(work)) {
        RawLists corners = cornersOf(work, order);
        progress.advance(2);
        return finish(work, corners, order.points(work.room, progress),
                      [](std::int64_t, std::uint32_t const* begin, std::uint32_t const* end, Watch& watch) {
                          return hasLonely(begin, end, watch);
                      });
    }
    Flags border(static_cast<std::size_t>(pointCount));
    SideMatch(cells, pointCount, work.room, progress)
        .forEach(
            [&border](SideMatch::Match const& match, std::int64_t) {
                for (std::size_t at = 0; match.cells.size() == 1 && at < match.points.size(); ++at) {
                    border[match.points[at]].store(true, std::memory_order_relaxed);
                }
            },
            progress);
    progress.advance(1);
    RawLists edges = edgesOf(work, order);
    progress.advance(1);
    return finish(work, edges, order.points(work.room, progress), border);
}

NeighborLists neighborsOfCells(CellParts const& cells, std::int64_t pointCount, SmoothingValues const& values,
                               Progress& progress)
{
    Work const work = prepare(cells, pointCount, values, progress);
    progress.setTotal(2); // steps that take about as long
    Flags border(static_cast<std::size_t>(cells.cellCount()));
    SharedSides const shared = sharedSides(work, border);
    progress.advance(1);
    RawLists beside = cellsBeside(work, shared);
    return finish(work, beside, {}, border);
}

} // namespace veldraw::kernel

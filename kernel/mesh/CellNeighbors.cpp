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
using Pair = std::array<std::uint32_t, 2>;

/// Neighbors as they come up, some more than once.
struct RawLists
{
    ZeroedArray<std::int64_t> starts;
    ZeroedArray<std::uint32_t> neighbors;

    std::uint32_t* begin(std::int64_t list) { return neighbors.begin() + starts[static_cast<std::size_t>(list)]; }
    std::uint32_t* end(std::int64_t list) { return begin(list + 1); }
};

void requireSmall(std::int64_t count, char const* things)
{
    if (count >= std::numeric_limits<std::uint32_t>::max()) {
        throw std::runtime_error(std::string("The zone has too many ") + things + " to be smoothed.");
    }
}

/// @param forEachEntry calls its argument with a list, one or two neighbors in it, and their number; on all threads, and twice
template <typename ForEachEntry>
RawLists makeLists(std::int64_t count, ForEachEntry const& forEachEntry, Progress const& progress)
{
    ListStarts lists(count);
    forEachEntry([&lists](std::uint32_t list, Pair const&, std::int64_t entries) { lists.count(list, entries); });
    RawLists raw;
    raw.neighbors = ZeroedArray<std::uint32_t>(static_cast<std::size_t>(lists.close(progress)));
    forEachEntry([&](std::uint32_t list, Pair const& neighbors, std::int64_t entries) {
        std::copy_n(neighbors.begin(), entries, raw.neighbors.begin() + lists.next(list, entries));
    });
    raw.starts = lists.take(progress);
    return raw;
}

/// The ends of all edges, by places.
RawLists edgesOf(CellParts const& cells, PointOrder const& order, std::int64_t pointCount, Progress const& progress)
{
    return makeLists(
        pointCount,
        [&](auto const& add) {
            forEachChecked(cells.cellCount(), progress, [&](std::int64_t cell) {
                cells.forEachEdge(cell, [&](std::int64_t first, std::int64_t second) {
                    if (first != second) {
                        std::uint32_t const one = order.placeOf(first);
                        std::uint32_t const other = order.placeOf(second);
                        add(one, {other}, 1);
                        add(other, {one}, 1);
                    }
                });
            });
        },
        progress);
}

/// The same of surfaces, where each corner has two edges, which is quicker.
RawLists cornersOf(CellParts const& cells, PointOrder const& order, std::int64_t pointCount, Progress const& progress)
{
    return makeLists(
        pointCount,
        [&](auto const& add) {
            forEachChecked(cells.cellCount(), progress, [&](std::int64_t cell) {
                auto const [begin, end] = cells.corners(cell);
                for (std::int64_t const* corner = begin; corner < end; ++corner) {
                    std::int64_t const before = corner == begin ? end[-1] : corner[-1];
                    std::int64_t const after = corner + 1 == end ? *begin : corner[1];
                    Pair neighbors{};
                    std::size_t entries = 0;
                    for (std::int64_t const neighbor : {before, after}) {
                        if (neighbor != *corner) {
                            neighbors[entries++] = order.placeOf(neighbor);
                        }
                    }
                    add(order.placeOf(*corner), neighbors, static_cast<std::int64_t>(entries));
                }
            });
        },
        progress);
}

/// Whether a neighbor comes up once in a sorted list: in the list of a surface's corner the edge is one that one cell alone has.
bool hasLonely(std::uint32_t const* begin, std::uint32_t const* end)
{
    for (std::uint32_t const* at = begin; at < end;) {
        std::uint32_t const* next = at + 1;
        while (next < end && *next == *at) {
            ++next;
        }
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

/// Makes lists of the neighbors that count.
/// @param order the value at each place; empty: the same
/// @param isBorder (value, begin, end) whether a value is at the border, whose neighbors stand sorted between these
template <typename IsBorder>
NeighborLists finish(RawLists& raw, ZeroedArray<std::uint32_t> order, SmoothingValues const& values,
                     IsBorder const& isBorder, Progress const& progress)
{
    auto const count = static_cast<std::int64_t>(raw.starts.size()) - 1;
    auto const valueAt = [&order](std::int64_t place) {
        return order.isEmpty() ? place : std::int64_t{order[static_cast<std::size_t>(place)]};
    };
    auto const isHole = [&](std::int64_t place) { return values.hasHoles() && values.isHole(valueAt(place)); };
    NeighborLists lists;
    lists.starts = ZeroedArray<std::int64_t>(static_cast<std::size_t>(count) + 1);
    std::atomic<std::int64_t> held{0};
    forEachChecked(count, progress, [&](std::int64_t place) {
        std::uint32_t* const begin = raw.begin(place);
        std::uint32_t* end = raw.end(place);
        std::sort(begin, end);
        bool const isOut = isHole(place);
        bool const isHeld = isBorder(valueAt(place), begin, end);
        end = std::remove_if(begin, std::unique(begin, end), isHole);
        lists.starts[static_cast<std::size_t>(place) + 1] = isOut || isHeld ? 0 : end - begin;
        if (isHeld && !isOut) {
            held.fetch_add(1, std::memory_order_relaxed);
        }
    });
    lists.neighbors = ZeroedArray<std::uint32_t>(static_cast<std::size_t>(sumUp(lists.starts, progress)));
    std::atomic<std::int64_t> reach{0};
    forEachChecked(count, progress, [&](std::int64_t place) {
        std::int64_t const start = lists.starts[static_cast<std::size_t>(place)];
        std::int64_t const length = lists.starts[static_cast<std::size_t>(place) + 1] - start;
        if (length > 0) {
            std::uint32_t const* const from = raw.begin(place);
            std::copy_n(from, length, lists.neighbors.begin() + start);
            raiseTo(std::max(place - std::int64_t{from[0]}, std::int64_t{from[length - 1]} - place), reach);
        }
    });
    lists.held = held;
    lists.reach = reach;
    lists.order = std::move(order);
    return lists;
}

} // namespace

NeighborLists neighborsOfPoints(CellParts const& cells, std::int64_t pointCount, SmoothingValues const& values,
                                Progress& progress)
{
    requireSmall(pointCount, "points");
    requireSmall(cells.cellCount(), "cells");
    progress.setTotal(3); // steps that take about as long
    PointOrder const order(cells, pointCount, progress);
    if (cells.areSurfaces()) {
        RawLists corners = cornersOf(cells, order, pointCount, progress);
        progress.advance(2);
        auto const isBorder = [](std::int64_t, std::uint32_t const* begin, std::uint32_t const* end) {
            return hasLonely(begin, end);
        };
        return finish(corners, order.points(progress), values, isBorder, progress);
    }
    Flags border(static_cast<std::size_t>(pointCount));
    SideMatch(cells, pointCount, progress)
        .forEach(
            [&border](SideMatch::Match const& match, std::int64_t) {
                for (std::size_t at = 0; match.cells.size() == 1 && at < match.points.size(); ++at) {
                    border[match.points[at]].store(true, std::memory_order_relaxed);
                }
            },
            progress);
    progress.advance(1);
    RawLists edges = edgesOf(cells, order, pointCount, progress);
    progress.advance(1);
    auto const isBorder = [&border](std::int64_t point, std::uint32_t const*, std::uint32_t const*) {
        return border[static_cast<std::size_t>(point)].load(std::memory_order_relaxed);
    };
    return finish(edges, order.points(progress), values, isBorder, progress);
}

NeighborLists neighborsOfCells(CellParts const& cells, std::int64_t pointCount, SmoothingValues const& values,
                               Progress& progress)
{
    requireSmall(pointCount, "points");
    requireSmall(cells.cellCount(), "cells");
    progress.setTotal(2); // steps that take about as long
    Flags border(static_cast<std::size_t>(cells.cellCount()));
    std::vector<std::vector<Pair>> pairs(static_cast<std::size_t>(parallelChunkCount(pointCount)));
    SideMatch(cells, pointCount, progress)
        .forEach(
            [&](SideMatch::Match const& match, std::int64_t chunk) {
                if (match.cells.size() == 1) {
                    border[match.cells.front()].store(true, std::memory_order_relaxed);
                }
                for (std::size_t first = 0; first < match.cells.size(); ++first) {
                    for (std::size_t second = first + 1; second < match.cells.size(); ++second) {
                        pairs[static_cast<std::size_t>(chunk)].push_back({match.cells[first], match.cells[second]});
                    }
                }
            },
            progress);
    progress.advance(1);
    RawLists sides = makeLists(
        cells.cellCount(),
        [&](auto const& add) {
            forEachInParallel(static_cast<std::int64_t>(pairs.size()), [&](std::int64_t chunk) {
                progress.check();
                for (Pair const& pair : pairs[static_cast<std::size_t>(chunk)]) {
                    if (pair[0] != pair[1]) {
                        add(pair[0], {pair[1]}, 1);
                        add(pair[1], {pair[0]}, 1);
                    }
                }
            });
        },
        progress);
    auto const isBorder = [&border](std::int64_t cell, std::uint32_t const*, std::uint32_t const*) {
        return border[static_cast<std::size_t>(cell)].load(std::memory_order_relaxed);
    };
    return finish(sides, {}, values, isBorder, progress);
}

} // namespace veldraw::kernel

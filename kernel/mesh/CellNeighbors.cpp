#include "kernel/mesh/CellNeighbors.h"

#include "kernel/base/Parallel.h"
#include "kernel/compute/ListStarts.h"
#include "kernel/mesh/SideMatch.h"

#include <algorithm>
#include <limits>
#include <stdexcept>

namespace veldraw::kernel {

namespace {

using Flags = ZeroedArray<std::atomic<bool>>;
using Pair = std::array<std::uint32_t, 2>;

constexpr std::int64_t checkedAtOnce = 512;
constexpr std::int64_t valuesForAThread = 1024; // some ten microseconds

/// Neighbors as they come up, some more than once.
struct RawLists
{
    ZeroedArray<std::int64_t> starts;
    ZeroedArray<std::uint32_t> neighbors;

    std::uint32_t* begin(std::int64_t value) { return neighbors.begin() + starts[static_cast<std::size_t>(value)]; }
    std::uint32_t* end(std::int64_t value) { return begin(value + 1); }
};

void requireSmall(std::int64_t count, char const* things)
{
    if (count > std::numeric_limits<std::uint32_t>::max()) {
        throw std::runtime_error(std::string("The zone has too many ") + things + " to be smoothed.");
    }
}

/// @param forEachPair calls its argument with two different values for each pair of neighbors, on all threads; called twice
template <typename ForEachPair>
RawLists listPairs(std::int64_t count, ForEachPair const& forEachPair)
{
    ListStarts lists(count);
    forEachPair([&lists](std::size_t first, std::size_t second) {
        lists.count(first);
        lists.count(second);
    });
    RawLists raw;
    raw.neighbors = ZeroedArray<std::uint32_t>(static_cast<std::size_t>(lists.close()));
    forEachPair([&](std::size_t first, std::size_t second) {
        raw.neighbors[lists.next(first)] = static_cast<std::uint32_t>(second);
        raw.neighbors[lists.next(second)] = static_cast<std::uint32_t>(first);
    });
    raw.starts = lists.take();
    return raw;
}

template <typename Body>
void forEachChecked(std::int64_t count, Progress const& progress, Body const& body)
{
    parallelFor(
        count,
        [&](std::int64_t first, std::int64_t last, std::int64_t chunk) {
            for (std::int64_t at = first; at < last; ++at) {
                if (at % checkedAtOnce == 0) {
                    progress.check();
                }
                body(at, chunk);
            }
        },
        valuesForAThread);
}

RawLists edgesOf(CellParts const& cells, std::int64_t pointCount, Progress const& progress)
{
    return listPairs(pointCount, [&](auto const& addPair) {
        forEachChecked(cells.cellCount(), progress, [&](std::int64_t cell, std::int64_t) {
            cells.forEachEdge(cell, [&](std::int64_t first, std::int64_t second) {
                if (first != second) {
                    addPair(static_cast<std::size_t>(first), static_cast<std::size_t>(second));
                }
            });
        });
    });
}

/// Marks the points at the border of cells whose edges are their sides: the edge comes up once alone. Lists are sorted.
void markBorderByEdges(RawLists& edges, Flags& border, Progress const& progress)
{
    forEachChecked(static_cast<std::int64_t>(border.size()), progress, [&](std::int64_t point, std::int64_t) {
        std::uint32_t const* const end = edges.end(point);
        for (std::uint32_t const* at = edges.begin(point); at < end;) {
            std::uint32_t const* const next = std::upper_bound(at, end, *at);
            if (next - at == 1) {
                border[static_cast<std::size_t>(point)].store(true, std::memory_order_relaxed);
                return;
            }
            at = next;
        }
    });
}

void markBorderBySides(SideMatch const& sides, Flags& border, Progress const& progress)
{
    sides.forEach(
        [&border](SideMatch::Match const& match, std::int64_t) {
            for (std::size_t at = 0; match.cells.size() == 1 && at < match.points.size(); ++at) {
                border[match.points[at]].store(true, std::memory_order_relaxed);
            }
        },
        progress);
}

/// Makes lists of the neighbors that count.
NeighborLists finish(RawLists& raw, Flags const& border, SmoothingValues const& values, Progress const& progress)
{
    auto const count = static_cast<std::int64_t>(border.size());
    auto const isHole = [&values](std::int64_t value) { return values.hasHoles() && values.isHole(value); };
    NeighborLists lists;
    lists.starts = ZeroedArray<std::int64_t>(static_cast<std::size_t>(count) + 1);
    std::atomic<std::int64_t> held{0};
    forEachChecked(count, progress, [&](std::int64_t value, std::int64_t) {
        bool const isOut = isHole(value);
        bool const isHeld = border[static_cast<std::size_t>(value)].load(std::memory_order_relaxed);
        std::uint32_t* const begin = raw.begin(value);
        std::uint32_t* end = std::unique(begin, raw.end(value));
        end = std::remove_if(begin, end, isHole);
        lists.starts[static_cast<std::size_t>(value) + 1] = isOut || isHeld ? 0 : end - begin;
        if (isHeld && !isOut) {
            held.fetch_add(1, std::memory_order_relaxed);
        }
    });
    std::int64_t sum = 0;
    for (std::int64_t& start : lists.starts) {
        sum += start;
        start = sum;
    }
    lists.neighbors = ZeroedArray<std::uint32_t>(static_cast<std::size_t>(sum));
    forEachChecked(count, progress, [&](std::int64_t value, std::int64_t) {
        std::int64_t const start = lists.starts[static_cast<std::size_t>(value)];
        std::copy_n(raw.begin(value), lists.starts[static_cast<std::size_t>(value) + 1] - start,
                    lists.neighbors.begin() + start);
    });
    lists.held = held;
    return lists;
}

void sortLists(RawLists& raw, std::int64_t count, Progress const& progress)
{
    forEachChecked(count, progress,
                   [&raw](std::int64_t value, std::int64_t) { std::sort(raw.begin(value), raw.end(value)); });
}

} // namespace

NeighborLists neighborsOfPoints(CellParts const& cells, std::int64_t pointCount, SmoothingValues const& values,
                                Progress const& progress)
{
    requireSmall(pointCount, "points");
    requireSmall(cells.cellCount(), "cells");
    Flags border(static_cast<std::size_t>(pointCount));
    if (!cells.areSurfaces()) {
        markBorderBySides(SideMatch(cells, pointCount, progress), border, progress);
    }
    RawLists edges = edgesOf(cells, pointCount, progress);
    sortLists(edges, pointCount, progress);
    if (cells.areSurfaces()) {
        markBorderByEdges(edges, border, progress);
    }
    return finish(edges, border, values, progress);
}

NeighborLists neighborsOfCells(CellParts const& cells, std::int64_t pointCount, SmoothingValues const& values,
                               Progress const& progress)
{
    requireSmall(pointCount, "points");
    requireSmall(cells.cellCount(), "cells");
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
    RawLists sides = listPairs(cells.cellCount(), [&pairs](auto const& addPair) {
        forEachInParallel(static_cast<std::int64_t>(pairs.size()), [&](std::int64_t chunk) {
            for (Pair const& pair : pairs[static_cast<std::size_t>(chunk)]) {
                if (pair[0] != pair[1]) {
                    addPair(pair[0], pair[1]);
                }
            }
        });
    });
    sortLists(sides, cells.cellCount(), progress);
    return finish(sides, border, values, progress);
}

} // namespace veldraw::kernel

#include "kernel/mesh/CellNeighbors.h"

#include "kernel/base/CheckedLoop.h"
#include "kernel/base/RaiseTo.h"
#include "kernel/mesh/FirstNeighbors.h"
#include "kernel/mesh/NeighborFill.h"
#include "kernel/mesh/OrientedNeighbors.h"
#include "kernel/mesh/PointOrder.h"
#include "kernel/mesh/SideMatch.h"

#include <algorithm>
#include <atomic>
#include <limits>
#include <stdexcept>

namespace veldraw::kernel {

namespace {

using Flags = ZeroedArray<std::atomic<bool>>;

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

constexpr std::int64_t cellsOfGroup = 1024;

/// Calls @p body for each cell of a group.
template <typename Body>
void forEachCell(CellParts const& cells, std::int64_t group, Watch& watch, Body const& body)
{
    std::int64_t const end = std::min((group + 1) * cellsOfGroup, cells.cellCount());
    for (std::int64_t cell = group * cellsOfGroup; cell < end; ++cell) {
        watch.count();
        body(cell);
    }
}

/// The ends of all edges, by places.
RawLists edgesOf(Work const& work, PointOrder const& order, ZeroedArray<ListSpan> const& spans)
{
    auto const forEachEnd = [&](std::int64_t group, Watch& watch, auto const& add) {
        forEachCell(work.cells, group, watch, [&](std::int64_t cell) {
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
    };
    return fillLists(work.pointCount, spans, work.room, work.progress, forEachEnd);
}

/// The same of surfaces, where each corner has two edges, which is quicker.
RawLists cornersOf(Work const& work, PointOrder const& order, ZeroedArray<ListSpan> const& spans)
{
    auto const forEachCorner = [&](std::int64_t group, Watch& watch, auto const& add) {
        forEachCell(work.cells, group, watch, [&](std::int64_t cell) {
            auto const [begin, end] = work.cells.corners(cell);
            watch.count(end - begin);
            std::int64_t before = begin == end ? 0 : end[-1];
            for (std::int64_t const* corner = begin; corner < end; ++corner) {
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
                before = *corner;
            }
        });
    };
    return fillLists(work.pointCount, spans, work.room, work.progress, forEachCorner);
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

/// What is to be known of the cells of a zone before neighbours are listed.
struct Survey
{
    ZeroedArray<ListSpan> spans; ///< the places of the points of each group of cells
    bool haveEdgesOnce;          ///< all are surfaces, and each has each of its edges once
};

Survey surveyCells(Work const& work, PointOrder const& order)
{
    std::int64_t const groups = (work.cells.cellCount() + cellsOfGroup - 1) / cellsOfGroup;
    ZeroedArray<ListSpan> spans = work.room.array<ListSpan>(groups);
    std::atomic<bool> areOnce{work.cells.areSurfaces()};
    parallelFor(groups, [&](std::int64_t first, std::int64_t last, std::int64_t) {
        Watch watch(work.progress);
        for (std::int64_t group = first; group < last; ++group) {
            bool isLookedAt = areOnce.load(std::memory_order_relaxed);
            ListSpan span;
            forEachCell(work.cells, group, watch, [&](std::int64_t cell) {
                auto const [begin, end] = work.cells.corners(cell);
                watch.count(end - begin);
                if (work.cells.areSurfaces()) {
                    std::for_each(begin, end, [&](std::int64_t corner) { span.include(order.placeOf(corner)); });
                } else {
                    work.cells.forEachEdge(cell, [&](std::int64_t one, std::int64_t other) {
                        watch.count();
                        span.include(order.placeOf(one));
                        span.include(order.placeOf(other));
                    });
                }
                if (isLookedAt && !hasEdgesOnce(begin, end, watch)) {
                    isLookedAt = false;
                    areOnce.store(false, std::memory_order_relaxed);
                }
            });
            spans[static_cast<std::size_t>(group)] = span;
        }
    });
    return {std::move(spans), areOnce};
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

/// Brings what is left of the lists together. @param lists with the length of each list in its start
void gather(Work const& work, RawLists& raw, NeighborLists& lists)
{
    lists.neighbors = work.room.array<std::uint32_t>(sumUp(lists.starts, work.progress));
    std::atomic<std::int64_t> reach{0};
    forEachWatched(lists.count(), work.progress, [&](std::int64_t place, Watch& watch) {
        std::int64_t const start = lists.starts[static_cast<std::size_t>(place)];
        std::int64_t const length = lists.starts[static_cast<std::size_t>(place) + 1] - start;
        if (length > 0) {
            std::uint32_t const* const from = raw.begin(place);
            watch.count(length);
            std::uint32_t low = from[0];
            std::uint32_t high = from[0];
            for (std::int64_t at = 0; at < length; ++at) {
                lists.neighbors[static_cast<std::size_t>(start + at)] = from[at];
                low = std::min(low, from[at]);
                high = std::max(high, from[at]);
            }
            raiseTo(std::max(place - std::int64_t{low}, std::int64_t{high} - place), reach);
        }
    });
    lists.reach = reach;
}

/// Makes lists of the neighbours that count.
/// @param order the value at each place; empty: the same
/// @param isBorder (value, isAnyLonely) whether a value is at the border
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
        FirstNeighbors const firsts = keepFirsts(begin, end, watch);
        bool const isOut = isHole(place);
        bool const isHeld = isBorder(valueAt(place), firsts.isAnyLonely);
        std::uint32_t const* const left =
            work.values.hasHoles() ? std::remove_if(begin, firsts.end, isHole) : firsts.end;
        lists.starts[static_cast<std::size_t>(place) + 1] = isOut || isHeld ? 0 : left - begin;
        if (isHeld && !isOut) {
            held.fetch_add(1, std::memory_order_relaxed);
        }
    });
    lists.held = held;
    gather(work, raw, lists);
    lists.order = std::move(order);
    return lists;
}

/// Lists in which it is marked which values are at the border.
NeighborLists finish(Work const& work, RawLists& raw, ZeroedArray<std::uint32_t> order, Flags const& border)
{
    return finish(work, raw, std::move(order), [&border](std::int64_t value, bool) {
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

/// Calls @p body with the cells that have a side in common.
template <typename Body>
void forEachShared(std::vector<std::uint32_t> const& shared, Watch& watch, Body const& body)
{
    for (std::uint32_t const* at = shared.data(); at < shared.data() + shared.size(); at += *at + 1) {
        watch.count(*at);
        body(at + 1, at + 1 + *at);
    }
}

/// For each cell the others at its sides.
RawLists cellsBeside(Work const& work, SharedSides const& shared)
{
    ZeroedArray<ListSpan> spans = work.room.array<ListSpan>(static_cast<std::int64_t>(shared.size()));
    Watch watch(work.progress);
    for (std::size_t chunk = 0; chunk < shared.size(); ++chunk) {
        ListSpan span;
        forEachShared(shared[chunk], watch, [&](std::uint32_t const* begin, std::uint32_t const* end) {
            std::for_each(begin, end, [&](std::uint32_t cell) { span.include(cell); });
        });
        spans[chunk] = span;
    }
    auto const forEachCellBeside = [&](std::int64_t chunk, Watch& own, auto const& add) {
        forEachShared(shared[static_cast<std::size_t>(chunk)], own,
                      [&](std::uint32_t const* begin, std::uint32_t const* end) {
                          for (std::uint32_t const* cell = begin; cell < end; ++cell) {
                              add(*cell, end - begin - 1, [&](std::uint32_t* others) {
                                  own.count(end - begin);
                                  std::copy(cell + 1, end, std::copy(begin, cell, others));
                              });
                          }
                      });
    };
    return fillLists(work.cells.cellCount(), spans, work.room, work.progress, forEachCellBeside);
}

} // namespace

NeighborLists neighborsOfPoints(CellParts const& cells, std::int64_t pointCount, SmoothingValues const& values,
                                Progress& progress)
{
    Work const work = prepare(cells, pointCount, values, progress);
    progress.setTotal(3); // steps that take about as long
    PointOrder const order(cells, pointCount, work.room, progress);
    Survey const survey = surveyCells(work, order);
    if (survey.haveEdgesOnce) {
        if (auto lists = values.hasHoles() ? std::nullopt
                                           : orientedNeighbors(cells, pointCount, order, survey.spans, cellsOfGroup,
                                                               work.room, progress)) {
            progress.advance(3);
            return std::move(*lists);
        }
        RawLists corners = cornersOf(work, order, survey.spans);
        progress.advance(2);
        return finish(work, corners, order.points(work.room, progress),
                      [](std::int64_t, bool isAnyLonely) { return isAnyLonely; });
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
    RawLists edges = edgesOf(work, order, survey.spans);
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

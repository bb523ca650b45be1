#pragma once

#include "kernel/base/Parallel.h"
#include "kernel/base/RoomBeside.h"
#include "kernel/base/Watch.h"

#include <cstdint>
#include <limits>

namespace veldraw::kernel {

/// Lists of neighbours as they come up, some more than once.
struct RawLists
{
    ZeroedArray<std::int64_t> starts; ///< one more than there are lists
    ZeroedArray<std::uint32_t> neighbors;

    std::uint32_t* begin(std::int64_t list) { return neighbors.begin() + starts[static_cast<std::size_t>(list)]; }
    std::uint32_t* end(std::int64_t list) { return begin(list + 1); }
};

/// The lists that a group of cells has neighbours for: none outside.
struct ListSpan
{
    std::uint32_t first = std::numeric_limits<std::uint32_t>::max();
    std::uint32_t last = 0;

    void include(std::uint32_t list)
    {
        first = std::min(first, list);
        last = std::max(last, list);
    }
};

/// Fills lists on all threads. Each fills lists of its own, with all that comes up in the groups that reach them, so that no thread waits
/// for another, and the order of neighbours is that of the groups.
/// @param spans         of all groups
/// @param forEachEntry  calls its last argument, the same way each time, for what comes up in a group: with a list, a number of neighbours in it,
///                      and a function that writes them: (group, watch, add(list, count, write(place)))
/// @throws Interrupted, std::bad_alloc
template <typename ForEachEntry>
RawLists fillLists(std::int64_t lists, ZeroedArray<ListSpan> const& spans, RoomBeside const& room,
                   Progress const& progress, ForEachEntry const& forEachEntry)
{
    std::int64_t const threads = threadCount();
    auto const forEachOwnEntry = [&](auto const& body) {
        forEachInParallel(threads, [&](std::int64_t thread) {
            Watch watch(progress);
            auto const first = static_cast<std::uint32_t>(lists * thread / threads);
            auto const end = static_cast<std::uint32_t>(lists * (thread + 1) / threads);
            for (std::size_t group = 0; group < spans.size(); ++group) {
                watch.count();
                if (spans[group].last < first || spans[group].first >= end) {
                    continue;
                }
                forEachEntry(static_cast<std::int64_t>(group), watch,
                             [&](std::uint32_t list, std::int64_t count, auto const& write) {
                                 if (list >= first && list < end) {
                                     body(list, count, write);
                                 }
                             });
            }
        });
    };
    RawLists raw;
    // Of list n at n + 1: first its number of neighbours, then the place of its next one, in the end that after its last.
    raw.starts = room.array<std::int64_t>(lists + 1);
    forEachOwnEntry([&](std::size_t list, std::int64_t count, auto const&) { raw.starts[list + 1] += count; });
    std::int64_t next = 0;
    for (std::size_t at = 0; at < raw.starts.size(); ++at) {
        if (at % 65536 == 0) {
            progress.check();
        }
        std::int64_t const length = raw.starts[at];
        raw.starts[at] = next;
        next += length;
    }
    raw.neighbors = room.array<std::uint32_t>(next);
    forEachOwnEntry([&](std::size_t list, std::int64_t count, auto const& write) {
        std::int64_t& place = raw.starts[list + 1];
        write(raw.neighbors.begin() + place);
        place += count;
    });
    return raw;
}

} // namespace veldraw::kernel

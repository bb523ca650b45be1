#pragma once

#include "kernel/base/Progress.h"
#include "kernel/base/RoomBeside.h"

#include <atomic>

namespace veldraw::kernel {

/// Where lists begin that are filled on several threads: first all entries are counted, then each gets its place. The order of the
/// entries in a list is that in which threads come.
class ListStarts
{
public:
    /// @throws std::bad_alloc
    ListStarts(std::int64_t lists, RoomBeside const& room)
        : m_room(room)
        , m_ends(room.array<std::atomic<std::int64_t>>(lists + 1))
    {
    }

    void count(std::size_t list, std::int64_t entries = 1)
    {
        m_ends[list + 1].fetch_add(entries, std::memory_order_relaxed);
    }

    /// To be called when all have been counted. @return the number of entries. @throws Interrupted
    std::int64_t close(Progress const& progress);

    /// The place of the next entry of a list, or the first place of some.
    std::size_t next(std::size_t list, std::int64_t entries = 1)
    {
        return static_cast<std::size_t>(m_ends[list + 1].fetch_add(entries, std::memory_order_relaxed));
    }

    /// The starts, with the end of the last list, when all entries have their place. @throws Interrupted, std::bad_alloc
    ZeroedArray<std::int64_t> take(Progress const& progress) const;

private:
    RoomBeside m_room;
    // Of list n at n + 1: first its number of entries, then the place of its next entry, in the end that after its last.
    ZeroedArray<std::atomic<std::int64_t>> m_ends;
};

} // namespace veldraw::kernel

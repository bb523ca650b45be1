#include "kernel/compute/ListStarts.h"

#include "kernel/base/CheckedLoop.h"

namespace veldraw::kernel {

std::int64_t ListStarts::close(Progress const& progress)
{
    std::int64_t next = 0;
    for (std::size_t at = 0; at < m_ends.size(); ++at) {
        if (at % 65536 == 0) {
            progress.check();
        }
        std::int64_t const length = m_ends[at].load(std::memory_order_relaxed);
        m_ends[at].store(next, std::memory_order_relaxed);
        next += length;
    }
    return next;
}

ZeroedArray<std::int64_t> ListStarts::take(Progress const& progress) const
{
    auto const size = static_cast<std::int64_t>(m_ends.size());
    ZeroedArray<std::int64_t> starts = m_room.array<std::int64_t>(size);
    forEachChecked(size, progress, [&](std::int64_t number) {
        auto const at = static_cast<std::size_t>(number);
        starts[at] = m_ends[at].load(std::memory_order_relaxed);
    });
    return starts;
}

} // namespace veldraw::kernel

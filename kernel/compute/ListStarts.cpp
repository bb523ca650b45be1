#include "kernel/compute/ListStarts.h"

namespace veldraw::kernel {

std::int64_t ListStarts::close()
{
    std::int64_t next = 0;
    for (std::atomic<std::int64_t>& end : m_ends) {
        next += end.exchange(next, std::memory_order_relaxed);
    }
    return next;
}

ZeroedArray<std::int64_t> ListStarts::take()
{
    ZeroedArray<std::int64_t> starts(m_ends.size());
    for (std::size_t at = 0; at < m_ends.size(); ++at) {
        starts[at] = m_ends[at].load(std::memory_order_relaxed);
    }
    return starts;
}

} // namespace veldraw::kernel

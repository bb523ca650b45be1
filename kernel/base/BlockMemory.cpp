#include "kernel/base/BlockMemory.h"

#include "kernel/base/SystemMemory.h"

#include <algorithm>

namespace veldraw::kernel {

void* BlockMemory::take(std::size_t bytes)
{
    constexpr std::size_t alignment = alignof(std::max_align_t);
    std::size_t const size = (bytes + alignment - 1) / alignment * alignment;
    if (size > m_left) {
        constexpr std::size_t most = std::size_t{16} << 20U;
        std::size_t const chunk =
            std::max(size, std::min(m_taken / 2, most)); // little is unused, however much is taken
        m_chunks.push_back(allocateZeroed(static_cast<std::int64_t>(chunk)));
        m_free = static_cast<std::byte*>(m_chunks.back().get());
        m_left = chunk;
    }
    void* const block = m_free;
    m_free += size;
    m_left -= size;
    m_taken += size;
    return block;
}

} // namespace veldraw::kernel

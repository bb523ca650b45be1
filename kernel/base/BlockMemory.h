#pragma once

#include <cstddef>
#include <memory>
#include <vector>

namespace veldraw::kernel {

/// Memory for many blocks of one owner, which all go back to the system together: at once, however many there are, and also
/// those that the owner has lost.
///
/// Blocks come from ever larger chunks, which are on huge pages where they are large (see allocateZeroed()).
class BlockMemory
{
public:
    BlockMemory() = default;

    /// A block, aligned for every type. @throws std::bad_alloc
    void* take(std::size_t bytes);

    BlockMemory(BlockMemory const&) = delete;
    BlockMemory& operator=(BlockMemory const&) = delete;

private:
    std::vector<std::shared_ptr<void>> m_chunks;
    std::byte* m_free = nullptr;
    std::size_t m_left = 0;
    std::size_t m_taken = 0;
};

} // namespace veldraw::kernel

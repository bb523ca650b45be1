#include "kernel/base/ExactMemory.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <gmp.h>
#include <mutex>
#include <new>

namespace veldraw::kernel {

namespace {

constexpr std::size_t alignmentOfNumbers = alignof(std::max_align_t);

/// Part of the program, so that to have it takes no memory that could lack. It is handed out from front to back, and anew once all is given
/// back.
class ReserveOfNumbers
{
public:
    void* take(std::size_t bytes) noexcept
    {
        std::lock_guard<std::mutex> const lock(m_mutex);
        std::size_t const size = (bytes + alignmentOfNumbers - 1) / alignmentOfNumbers * alignmentOfNumbers;
        if (size > ExactMemory::reserveBytes - m_used) {
            std::abort();
        }
        void* const memory = m_room + m_used;
        m_used += size;
        ++m_pieces;
        ++m_times;
        return memory;
    }

    bool holds(void const* memory) const noexcept
    {
        std::less<> const isBefore;
        return !isBefore(memory, m_room) && isBefore(memory, m_room + ExactMemory::reserveBytes);
    }

    void release() noexcept
    {
        std::lock_guard<std::mutex> const lock(m_mutex);
        --m_pieces;
        if (m_pieces == 0) {
            m_used = 0;
        }
    }

    std::int64_t times() noexcept
    {
        std::lock_guard<std::mutex> const lock(m_mutex);
        return m_times;
    }

private:
    alignas(alignmentOfNumbers) char m_room[ExactMemory::reserveBytes]{};
    std::mutex m_mutex;
    std::size_t m_used = 0;
    std::int64_t m_pieces = 0;
    std::int64_t m_times = 0;
};

ReserveOfNumbers reserveOfNumbers;

/// Before the first exact number is made, as each is to be given back to where it came from.
[[maybe_unused]] bool const isExactMemorySet = [] {
    mp_set_memory_functions(ExactMemory::take, ExactMemory::resize, ExactMemory::release);
    return true;
}();

} // namespace

void* ExactMemory::take(std::size_t bytes) noexcept
{
    void* const memory = ::operator new(bytes, std::nothrow);
    return memory != nullptr ? memory : reserveOfNumbers.take(bytes);
}

void* ExactMemory::resize(void* memory, std::size_t bytes, std::size_t newBytes) noexcept
{
    void* const moved = take(newBytes);
    std::memcpy(moved, memory, std::min(bytes, newBytes));
    release(memory, bytes);
    return moved;
}

void ExactMemory::release(void* memory, std::size_t) noexcept
{
    if (reserveOfNumbers.holds(memory)) {
        reserveOfNumbers.release();
    } else {
        ::operator delete(memory);
    }
}

std::int64_t ExactMemory::timesReserveWasUsed() noexcept
{
    return reserveOfNumbers.times();
}

} // namespace veldraw::kernel

#pragma once

#include <cstddef>
#include <cstdint>

namespace veldraw::kernel {

/// Memory for exact numbers, whose library ends the process where it gets none and can be told of no failure.
///
/// Where the system has none left they get it from a reserve that always stands ready. It holds thousands of the numbers that come up while
/// triangles are made, all of which are given back after each step, so that the numbers stay right and whoever asks next by new is refused
/// in order. All functions may be called on any thread.
class ExactMemory
{
public:
    static constexpr std::size_t reserveBytes = std::size_t{1} << 20;

    /// Aligned as by new. Ends the process when the reserve is used up too.
    static void* take(std::size_t bytes) noexcept;
    static void* resize(void* memory, std::size_t bytes, std::size_t newBytes) noexcept;
    static void release(void* memory, std::size_t bytes) noexcept;

    /// How often there was no other memory. For tests.
    static std::int64_t timesReserveWasUsed() noexcept;
};

} // namespace veldraw::kernel

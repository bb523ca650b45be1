#pragma once

#include <cstdint>
#include <memory>
#include <new>

namespace veldraw::kernel {

/// Bytes of memory, including free swap space, that the system has available now; infinite when it does not tell.
double availableMemory();

/// Thrown by requireMemory(), before an allocation is tried, with the number of bytes that are missing.
class NotEnoughMemory : public std::bad_alloc
{
public:
    explicit NotEnoughMemory(double missingBytes) noexcept
        : missing(missingBytes)
    {
    }

    double missing; ///< bytes
};

/// Checks before a large computation that the machine has memory for it. Without the check an allocation would succeed and
/// the system would end the process when it writes to the memory.
/// @param available available memory before the first of @p bytes was allocated
/// @throws NotEnoughMemory when @p bytes are more than that
void requireMemory(double bytes, double available = availableMemory());

/// Returns freed memory to the system as far as possible, so that it counts as available.
void returnFreedMemory() noexcept;

/// Zeroed memory, aligned to 64 bytes at least.
///
/// Large blocks are taken from the system on huge pages, since the first writes to small pages take longer than the
/// arithmetic. They go back to the system as soon as the last holder releases them.
/// @throws std::bad_alloc
std::shared_ptr<void> allocateZeroed(std::int64_t bytes);

} // namespace veldraw::kernel

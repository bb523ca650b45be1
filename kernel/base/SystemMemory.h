#pragma once

#include <cstdint>
#include <memory>
#include <new>

namespace veldraw::kernel {

/// Bytes that can be had now without driving others out; infinite when the system does not tell.
double availableMemory();

/// Memory was refused before anybody tried to take it, so that it is known how much is missing.
class NotEnoughMemory : public std::bad_alloc
{
public:
    explicit NotEnoughMemory(double missingBytes) noexcept
        : missing(missingBytes)
    {
    }

    double missing; ///< bytes
};

/// Refuses what the machine cannot hold before a start is made with it: the system would promise the memory, and end the
/// process when it is used.
/// @param available what there was before any of @p bytes was taken
/// @throws NotEnoughMemory when @p bytes are more
void requireMemory(double bytes, double available = availableMemory());

/// Gives memory that has been freed back to the system, as far as that can be, so that it counts as available.
void returnFreedMemory() noexcept;

/// Zeroed memory, aligned to 64 bytes at least.
///
/// Large pieces come straight from the system on huge pages, since writing to fresh small pages costs more than the
/// arithmetic; they go back to the system the moment the last holder lets go.
/// @throws std::bad_alloc
std::shared_ptr<void> allocateZeroed(std::int64_t bytes);

} // namespace veldraw::kernel

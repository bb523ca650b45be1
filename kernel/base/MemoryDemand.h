#pragma once

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

} // namespace veldraw::kernel

#pragma once

#include "app/handover/Descriptor.h"

#include <cstddef>

namespace veldraw::app {

/// Large blocks of memory, each a nameless file of its own, so that what has been read into one can be given to another process without a
/// copy. They stand in for what malloc() gives (SharedMalloc.cpp), so that nothing here may take memory itself.
class SharedBlocks
{
public:
    /// Smaller ones are not worth a file.
    static constexpr std::size_t smallest = std::size_t{1} << 18;

    /// Memory of zeros. @return null when there is none, or too many blocks are there
    static void* allocate(std::size_t bytes) noexcept;

    /// Whether a block starts at this address.
    static bool has(void const* address) noexcept;

    /// A block of another size with the same bytes, as realloc() gives it. @return null when there is none; the old one is left
    static void* resize(void* block, std::size_t bytes) noexcept;

    /// @return false where no block starts at this address
    static bool release(void* address) noexcept;

    /// Takes the memory away from a block: nobody can look at it any more, though it has to be released still.
    /// @return the file, which nobody can write to or cut short; not open when the system refuses
    static Descriptor take(void const* block) noexcept;
};

/// Closes a file in memory against all changes. @return false when the system refuses
bool sealed(int descriptor) noexcept;

} // namespace veldraw::app

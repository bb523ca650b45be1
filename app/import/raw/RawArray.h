#pragma once

#include "app/import/files/FileStamp.h"
#include "app/import/raw/RawType.h"

#include <cstdint>

namespace veldraw::app {

/// One component of an array that stands uncompressed in a file.
struct RawArray
{
    FileStamp file;
    std::int64_t offset = 0; ///< of the array's first byte, from the start of the file
    RawType type = RawType::Float32;
    std::int64_t tuples = 0;
    int components = 1; ///< they stand side by side
    int component = 0;  ///< the one that is meant, from 0
    bool bigEndian = false;

    std::int64_t bytes() const { return tuples * components * bytesOf(type); } ///< of all components

    /// Whether the bytes in the file are what the kernel wants, at an offset where a typed pointer may point. (Elsewhere
    /// it may not, even where the processor would follow it.)
    bool standsAsWanted() const
    {
        return isKernelType(type) && offset % bytesOf(type) == 0 && (!bigEndian || bytesOf(type) == 1);
    }
};

} // namespace veldraw::app

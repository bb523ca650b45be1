#pragma once

#include "app/files/FileStamp.h"
#include "app/import/raw/RawType.h"
#include "app/import/raw/SharedArray.h"
#include "kernel/base/Progress.h"
#include "kernel/storage/Buffer.h"

#include <cstdint>
#include <memory>

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

/// Maps the file's bytes as the values of a buffer a component, privately: the file is never altered, a page that is written
/// to becomes a copy. Nothing is read before it is looked at. The one mapping lives as long as one of the buffers, also when
/// the file is removed.
/// @param array standsAsWanted(); its component does not matter
/// @throws ImportError the file is gone or changed, or the system refuses
SharedArray::Components mapComponents(RawArray const& array);

/// Reads the values of the component into memory, converted to the kernel's type.
/// @throws ImportError the file is gone, changed, or changed while it was read
/// @throws std::bad_alloc, kernel::Interrupted
std::shared_ptr<kernel::Buffer> readValues(RawArray const& array, kernel::Progress& progress);

/// Reads all components at once: they share their memory, side by side as in the file.
/// @throws as readValues()
SharedArray::Components readComponents(RawArray const& array, kernel::Progress& progress);

/// Reads one component through a temporary file, which is mapped: the system can take the memory back at any time.
/// @throws ImportError also where there is no room for that file
std::shared_ptr<kernel::Buffer> copyToScratch(RawArray const& array, kernel::Progress& progress);

/// All components at once through one temporary file.
SharedArray::Components copyComponentsToScratch(RawArray const& array, kernel::Progress& progress);

} // namespace veldraw::app

#pragma once

#include "app/import/RawArray.h"
#include "kernel/compute/Progress.h"
#include "kernel/data/Buffer.h"

#include <memory>

namespace veldraw::app {

/// Maps the file's bytes as the values of a buffer, privately: the file is never altered, a page that is written to becomes
/// a copy. Nothing is read before it is looked at. The mapping lives as long as the buffer, also when the file is removed.
/// @param array canBeMapped()
/// @throws ImportError the file is gone or changed, or the system refuses
std::shared_ptr<kernel::Buffer> mapValues(RawArray const& array);

/// Reads the values into memory, converted to the kernel's type.
/// @throws ImportError the file is gone, changed, or changed while it was read
/// @throws std::bad_alloc, kernel::Interrupted
std::shared_ptr<kernel::Buffer> readValues(RawArray const& array, kernel::Progress& progress);

} // namespace veldraw::app

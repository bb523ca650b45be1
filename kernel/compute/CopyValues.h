#pragma once

#include "kernel/base/Progress.h"
#include "kernel/storage/Buffer.h"

namespace veldraw::kernel {

/// A contiguous copy of @p source, bit for bit.
/// @throws Interrupted, std::bad_alloc, NotEnoughMemory
std::shared_ptr<Buffer> copyValues(Buffer const& source, Progress& progress);

} // namespace veldraw::kernel

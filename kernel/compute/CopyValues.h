#pragma once

#include "kernel/base/Progress.h"
#include "kernel/storage/Buffer.h"

namespace veldraw::kernel {

/// A copy of @p source, bit for bit, with the values side by side.
/// @throws Interrupted, std::bad_alloc also when the machine does not have the memory
std::shared_ptr<Buffer> copyValues(Buffer const& source, Progress& progress);

} // namespace veldraw::kernel

#pragma once

#include "kernel/base/Progress.h"
#include "kernel/storage/Buffer.h"

namespace veldraw::kernel {

/// Stores the values of @p source with the opposite sign in @p target, a contiguous buffer of the same size and of the type
/// that computedType() gives. In a float or double only the sign bit changes, also of NaN, so negating twice restores every
/// bit.
/// @throws Interrupted
void negateValues(Buffer const& source, Buffer& target, Progress& progress);

} // namespace veldraw::kernel

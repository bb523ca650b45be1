#pragma once

#include "kernel/base/Progress.h"
#include "kernel/storage/Buffer.h"

namespace veldraw::kernel {

/// Stores the values of @p source with the other sign in @p target, which has as many, side by side, of the computed type.
/// Of a float or double only the sign's bit changes, whatever the value is: twice is as it was, to the last bit.
/// @throws Interrupted
void negateValues(Buffer const& source, Buffer& target, Progress& progress);

} // namespace veldraw::kernel

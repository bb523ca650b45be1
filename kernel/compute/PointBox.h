#pragma once

#include "kernel/base/Progress.h"
#include "kernel/compute/Box.h"
#include "kernel/compute/PointReader.h"

namespace veldraw::kernel {

/// The box of @p count points, all of them finite; computed on all cores.
/// @throws Interrupted
Box boxOf(PointReader const& reader, std::uint32_t const* points, std::int64_t count, Progress const& progress);

} // namespace veldraw::kernel

#pragma once

#include "kernel/base/Progress.h"
#include "kernel/compute/Rotation.h"
#include "kernel/storage/Buffer.h"

#include <array>
#include <memory>

namespace veldraw::kernel {

/// Where the components of points or vectors come from and go to.
struct ComponentBuffers
{
    std::int64_t count = 0;                               ///< of points or vectors
    std::array<std::shared_ptr<Buffer const>, 3> sources; ///< null: 0 everywhere
    std::array<std::shared_ptr<Buffer>, 3> targets;       ///< null: not wanted; else contiguous, float or double
};

/// Rotates the components that take part in @p rotation; the others are not looked at. Everything is computed in double.
/// A point or vector one of whose components is infinite or not a number stays as it is.
/// @throws Interrupted
void rotateValues(Rotation const& rotation, ComponentBuffers const& buffers, Progress& progress);

} // namespace veldraw::kernel

#pragma once

#include "kernel/base/Progress.h"
#include "kernel/compute/Rotation.h"
#include "kernel/storage/Buffer.h"

#include <array>
#include <memory>

namespace veldraw::kernel {

/// Buffers with the components of points or vectors, and buffers for their rotated components.
struct ComponentBuffers
{
    std::int64_t count = 0;                               ///< of points or vectors
    std::array<std::shared_ptr<Buffer const>, 3> sources; ///< null: 0 everywhere
    std::array<std::shared_ptr<Buffer>, 3> targets;       ///< null: result not needed; else contiguous, float or double
};

/// Rotates the components that @p rotation involves; the others are neither read nor written. Everything is computed in double
/// precision. A point or vector with a component that is infinite or NaN keeps its values.
/// @throws Interrupted
void rotateValues(Rotation const& rotation, ComponentBuffers const& buffers, Progress& progress);

} // namespace veldraw::kernel

#pragma once

#include "kernel/base/Progress.h"
#include "kernel/compute/PlaneGeometry.h"

#include <cstdint>
#include <vector>

namespace veldraw::kernel {

/// Points of the plane in an order in which those that are near each other in space soon follow each other; of several at the same
/// place only the one with the lowest number.
/// @param places finite; @param points indices of some of them, in ascending order
/// @throws Interrupted, std::bad_alloc
std::vector<std::uint32_t> differentInSpace(PlanePlace const* places, std::vector<std::uint32_t> points,
                                            Progress& progress);

} // namespace veldraw::kernel

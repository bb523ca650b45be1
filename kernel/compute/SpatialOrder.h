#pragma once

#include "kernel/base/Progress.h"
#include "kernel/compute/PointReader.h"

#include <vector>

namespace veldraw::kernel {

/// Puts points in an order in which points that are near each other in space are mostly near each other in the list: the
/// Morton order of a grid of 2^21 cells a side, and again of the points of a crowded cell (G. M. Morton, 1966).
///
/// Equal points are neighbours in the result. The result does not depend on the number of threads.
/// @param points the points to be sorted, all of them finite; in ascending order at first
/// @param progress all of it is for this. @throws Interrupted, std::bad_alloc
void sortInSpace(PointReader const& reader, std::vector<std::uint32_t>& points, Progress& progress);

} // namespace veldraw::kernel

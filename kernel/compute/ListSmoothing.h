#pragma once

#include "kernel/base/Progress.h"
#include "kernel/compute/NeighborLists.h"
#include "kernel/compute/SmoothingRule.h"
#include "kernel/compute/SmoothingValues.h"

namespace veldraw::kernel {

/// Smooths values by their neighbors in lists. What has no neighbors stays.
///
/// Beyond the results it takes two arrays of doubles. Results do not depend on the number of threads.
/// @param lists without holes
/// @param progress of this part of the work alone; its total is set
/// @param values examined; when it returns, all new values have been stored
/// @throws Interrupted, std::bad_alloc
SmoothingOutcome smoothByLists(NeighborLists const& lists, SmoothingRule const& rule, SmoothingValues& values,
                               Progress& progress);

} // namespace veldraw::kernel

#pragma once

#include "kernel/mesh/CellGeometry.h"

namespace veldraw::kernel {

/// What the values at some points mix to; no finite number when one of the values is none. Equal values give just this value, and
/// values of any size do not overflow on the way.
/// @param weights one at least, with the sum 1
double mixedValue(QuickReader const& values, std::vector<WeightedPoint> const& weights);

} // namespace veldraw::kernel

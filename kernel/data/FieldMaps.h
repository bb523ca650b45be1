#pragma once

#include "kernel/data/DataSet.h"

#include <vector>

namespace veldraw::kernel {

/// The zones of each field map: one map a time strand and one a static zone, in the order of their lowest zone numbers.
/// The map with number n stands at n - 1.
std::vector<NumberSet> fieldMaps(DataSet const& dataSet);

} // namespace veldraw::kernel

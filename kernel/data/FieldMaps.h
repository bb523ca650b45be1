#pragma once

#include "kernel/data/DataSet.h"

#include <vector>

namespace veldraw::kernel {

/// The enabled zones of each field map: one map a time strand and one a static zone. The map with number n stands at n - 1.
///
/// Maps are numbered in the order of their lowest zones, enabled or not, so that a map keeps its number while zones are
/// disabled; a map without an enabled zone is empty.
std::vector<NumberSet> fieldMaps(DataSet const& dataSet);

} // namespace veldraw::kernel

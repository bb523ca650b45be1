#pragma once

#include "kernel/base/Progress.h"
#include "kernel/data/DataSet.h"

namespace veldraw::kernel {

/// Finds the ranges of loaded values that are so many that the user would wait for it: to be called on the thread that has brought them, so
/// that they are known when windows ask. Values that are mapped are left alone, as everywhere.
/// @param dataSet that nobody else has yet
/// @throws Interrupted
void findLargeRanges(DataSet const& dataSet, Progress& progress);

} // namespace veldraw::kernel

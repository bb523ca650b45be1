#pragma once

#include "kernel/data/DataSet.h"

namespace veldraw::app {

/// Whether the rows of a table, the first zone of @p table, are points in a plane or in space that stand each for itself.
///
/// They are when columns called X and Y, and perhaps Z, tell where they are and none of these runs through the table: a curve over
/// an axis has a coordinate that never turns back and goes on in more than half of its rows. Points along a line parallel
/// to an axis are a curve over it, and rows in the order of a column called t or time are a series in time.
bool isScatteredTable(kernel::DataSet const& table);

} // namespace veldraw::app

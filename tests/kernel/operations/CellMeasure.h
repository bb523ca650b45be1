#pragma once

#include "kernel/data/DataSet.h"

namespace veldraw::tests {

/// Length, area or volume of each cell of a zone, by its own kind; the coordinates are the first three variables. A volume
/// is negative where the cell's corners run the other way round.
std::vector<double> cellMeasures(kernel::DataSet const& dataSet, int zone);

} // namespace veldraw::tests

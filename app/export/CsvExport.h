#pragma once

#include "kernel/compute/Progress.h"
#include "kernel/data/DataSet.h"

#include <string>
#include <vector>

namespace veldraw::app {

/// Writes the nodal variables of a zone as a text table, a row a point, with a header line.
/// Double values have 17 significant digits and float values 9, so that they read back as they were.
/// @param zone      one-based
/// @param separator comma or tab
/// @param path      file to write over
/// @param progress hears of the rows that are written
/// @return names of the cell-centred variables that were left out
/// @throws ExportError nothing to write, or the file cannot be written; kernel::Interrupted
std::vector<std::string> writeCsv(kernel::DataSet const& dataSet, int zone, char separator, std::string const& path,
                                  kernel::Progress& progress);

} // namespace veldraw::app

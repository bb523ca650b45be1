#pragma once

#include "kernel/data/DataSet.h"

#include <QString>

namespace veldraw::app {

/// What --info prints of a data set: its zones with their sizes, its variables with type, location and range.
QString dataSetReport(QString const& file, kernel::DataSet const& dataSet);

} // namespace veldraw::app

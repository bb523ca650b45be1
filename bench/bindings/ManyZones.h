#pragma once

#include "kernel/data/DataSet.h"

#include <memory>

namespace veldraw::bench {

/// A data set with one variable and zones named "Zone 1", "Zone 2", ...
std::shared_ptr<kernel::DataSet> manyZones(int count);

} // namespace veldraw::bench

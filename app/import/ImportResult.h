#pragma once

#include "kernel/data/DataSet.h"

#include <memory>
#include <string>
#include <vector>

namespace veldraw::app {

/// What an import brings.
struct ImportResult
{
    std::shared_ptr<kernel::DataSet> dataSet; ///< never null, with at least one zone
    std::vector<std::string> remarks; ///< what the user should know: converted types, cells left out and the like
};

} // namespace veldraw::app

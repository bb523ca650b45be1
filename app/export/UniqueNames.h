#pragma once

#include "kernel/data/DataSet.h"

#include <string>
#include <vector>

namespace veldraw::app {

/// Names of all variables, each once: a name that is taken gets " (2)" and so on, an empty one becomes "Variable n".
std::vector<std::string> uniqueVariableNames(kernel::DataSet const& dataSet);

} // namespace veldraw::app

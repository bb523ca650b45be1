#pragma once

#include "kernel/data/DataSet.h"

#include <vector>

namespace veldraw::kernel {

/// The variables of a data set that were the components of one array.
struct ArrayComponents
{
    SourceArray const* array;
    std::vector<int> variables; ///< one-based numbers, one for each component; 0 for a component that was deleted
};

/// All arrays of which some component is left, in the order of the first ones.
std::vector<ArrayComponents> componentsByArray(DataSet const& dataSet);

} // namespace veldraw::kernel

#pragma once

#include "kernel/data/DataSet.h"
#include "kernel/storage/ValueRange.h"

#include <vector>

namespace veldraw::app {

/// Range of the finite values of variables over several zones.
class ZoneRanges
{
public:
    /// @param zones one-based numbers; @param variable one-based
    /// @return Unknown when there is no finite value; zones where the variable is passive take no part
    static kernel::ValueRange of(kernel::DataSet const& dataSet, std::vector<int> const& zones, int variable);

    /// The same for a coordinate: points lie at 0 where it is passive.
    static kernel::ValueRange ofCoordinate(kernel::DataSet const& dataSet, std::vector<int> const& zones, int variable);
};

} // namespace veldraw::app

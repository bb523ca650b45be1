#pragma once

#include "kernel/frames/Frame.h"
#include "kernel/storage/ValueRange.h"

#include <vector>

namespace veldraw::app {

/// Range of the finite values of variables over several zones.
class ZoneRanges
{
public:
    /// What a frame with a data set does not leave out. @param zones one-based numbers; @param variable one-based
    /// @return Unknown when there is no finite value; zones where the variable is passive take no part
    static kernel::ValueRange of(kernel::Frame const& frame, std::vector<int> const& zones, int variable);

    /// Of a coordinate: points lie at 0 where it is passive. What value blanking hides takes part, so that the axes stand still.
    static kernel::ValueRange ofCoordinate(kernel::DataSet const& dataSet, std::vector<int> const& zones, int variable);
};

} // namespace veldraw::app

#pragma once

#include "kernel/frames/Frame.h"
#include "kernel/storage/ValueRange.h"

#include <vector>

namespace veldraw::app {

/// The limits of a contour flood, by the values in what a frame with a data set does not leave out.
class ContourRange
{
public:
    /// The lowest and highest value but the outermost hundredth at either end, so that a few extreme values do not take all the colours.
    ///
    /// Values are weighed as they are stored: many small cells count for more than few large ones. Of more than some hundred thousand
    /// values evenly spaced ones are looked at. Zones whose values are not in memory take part with the limits that are known of them.
    /// @param zones one-based numbers; @param variable one-based
    /// @return the whole range where nothing else is left between the limits, Unknown when there is no finite value
    static kernel::ValueRange withoutEnds(kernel::Frame const& frame, std::vector<int> const& zones, int variable);

    /// The lowest and highest value above 0, as logarithmic colours need them; the lowest is an estimate as above where there are values
    /// of 0 and below.
    /// @param isWithoutEnds the outermost hundredth of the values above 0 is left out at either end, as above
    /// @return Unknown when no value above 0 is known of
    static kernel::ValueRange positive(kernel::Frame const& frame, std::vector<int> const& zones, int variable,
                                       bool isWithoutEnds);
};

} // namespace veldraw::app

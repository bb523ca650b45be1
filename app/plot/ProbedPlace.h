#pragma once

#include "app/plot/ZonePlace.h"

#include <memory>
#include <optional>

namespace veldraw::app {

/// A place that a user has pointed at in a field plot. Zone and variables are kept by identifier, so that it is there again when the
/// deletion of one is undone.
struct ProbedPlace
{
    std::weak_ptr<kernel::DataSet> dataSet;
    std::array<kernel::UniqueId, 3> axes{}; ///< variables on the axes of the plot, 0 for none
    ZonePlace place;
    kernel::UniqueId frame = 0; ///< in which it was pointed at

    /// The zone; null when it is gone or has other points or cells than the place is between.
    std::shared_ptr<kernel::Zone const> zone() const;

    /// One-based numbers of the variables on the axes; 0 for one that is gone.
    std::array<int, 3> axisVariables() const;

    /// The coordinates; none without the zone. Those whose values are not loaded are no numbers.
    std::optional<std::array<double, 3>> position() const;
};

} // namespace veldraw::app

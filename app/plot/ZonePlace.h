#pragma once

#include "kernel/data/DataSet.h"
#include "kernel/mesh/CellGeometry.h"

#include <array>
#include <cstdint>
#include <vector>

namespace veldraw::app {

/// A place in a zone, given by points of the zone and their shares in a value there. It goes with its cell when coordinates change.
struct ZonePlace
{
    kernel::UniqueId zone = 0;
    std::int64_t cell = -1;                    ///< zero-based value slot of its cell
    std::vector<kernel::WeightedPoint> points; ///< zero-based; the shares have the sum 1
};

/// What a variable has at a place.
struct PlaceValue
{
    enum class State
    {
        Known,    ///< the value may be no finite number
        Passive,  ///< the variable has no values in the zone
        NotLoaded ///< its values are not in memory
    };

    State state = State::Passive;
    double value = 0.0;
    bool isOfCell = false; ///< the value of the cell as it is; otherwise a mix of those at points
};

/// Whether a zone still has the points and the cell of a place.
bool hasPlace(kernel::Zone const& zone, ZonePlace const& place);

/// The coordinates of a place that the zone has. @param axes one-based numbers of variables; 0: the coordinate is 0
/// @return no finite numbers where values are not loaded
std::array<double, 3> positionOf(kernel::Zone const& zone, ZonePlace const& place, std::array<int, 3> const& axes);

/// The nearest of the points of a place that the zone has, zero-based.
std::int64_t nearestPoint(kernel::Zone const& zone, ZonePlace const& place, std::array<int, 3> const& axes);

/// What a variable, with its one-based number, has at a place that the zone has.
PlaceValue valueAt(kernel::Zone const& zone, int variable, ZonePlace const& place);

} // namespace veldraw::app

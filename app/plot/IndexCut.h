#pragma once

#include "app/plot/ZoneShape.h"
#include "kernel/data/Zone.h"

namespace veldraw::app {

/// The points of one index in an ordered zone: a sheet of its points, or a line of a sheet.
class IndexCut
{
public:
    /// @param axis 0, 1, 2 for I, J, K; @param index one-based, rounded
    /// @return empty where the zone does not have the index, and where it has less than a line of points there
    static ZoneShape create(kernel::Zone const& zone, int axis, double index);

    /// Points that create() goes through.
    static std::int64_t work(std::array<std::int64_t, 3> const& dimensions, int axis);
};

} // namespace veldraw::app

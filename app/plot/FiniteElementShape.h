#pragma once

#include "app/plot/ZoneShape.h"
#include "kernel/data/DataSet.h"

namespace veldraw::app {

/// Finds what is to be drawn of a finite-element zone: lines and surface cells as they stand, without a copy of the
/// connectivity; of volume cells the faces that belong to one cell only.
class FiniteElementShape
{
public:
    /// @param number one-based number of a finite-element zone
    /// @return nothing to draw when the zone has no cells or its cells name points that do not exist
    static ZoneShape create(kernel::DataSet const& dataSet, int number);
};

} // namespace veldraw::app

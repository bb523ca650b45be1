#pragma once

#include "app/plot/ZoneShape.h"
#include "kernel/base/Progress.h"
#include "kernel/data/Zone.h"

namespace veldraw::app {

/// Finds what is to be drawn of a finite-element zone: lines and surface cells as they stand, without a copy of the
/// connectivity; of volume cells the faces that belong to one cell only. Cells that are hidden count for nothing.
class FiniteElementShape
{
public:
    /// @param zone a finite-element zone; its fields are not looked at
    /// @return nothing to draw when the zone has no cells or its cells name points that do not exist
    /// @throws kernel::Interrupted, std::bad_alloc
    static ZoneShape create(kernel::Zone const& zone, kernel::Progress const& progress = {});
};

} // namespace veldraw::app

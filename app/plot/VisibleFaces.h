#pragma once

#include "app/plot/ZoneShape.h"
#include "kernel/base/Progress.h"
#include "kernel/data/Zone.h"

namespace veldraw::app {

/// What is to be drawn of an ordered zone some of whose cells are hidden: the cells of a surface that are not, of a volume the
/// faces between a cell that is not and one that is, or the outside. Every cell is looked at, on all cores; memory goes with the faces.
class VisibleFaces
{
public:
    /// @param zone with two dimensions above 1 or three
    /// @throws kernel::Interrupted, std::bad_alloc
    static ZoneShape create(kernel::Zone const& zone, kernel::Progress const& progress);
};

} // namespace veldraw::app

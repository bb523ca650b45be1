#pragma once

#include "app/plot/ZoneShape.h"
#include "kernel/data/Zone.h"

namespace veldraw::app {

/// What is to be drawn of an ordered zone some of whose cells are hidden: the cells of a surface that are not, of a volume the
/// faces between a cell that is not and one that is, or the outside. Every cell is looked at; memory goes with the faces.
class VisibleFaces
{
public:
    /// @param zone with two dimensions above 1 or three
    static ZoneShape create(kernel::Zone const& zone);
};

} // namespace veldraw::app

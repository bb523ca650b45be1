#pragma once

#include "app/plot/ZoneShape.h"
#include "kernel/base/Progress.h"
#include "kernel/data/Zone.h"

namespace veldraw::app {

/// Finds what is to be drawn of an ordered zone straight from its dimensions: the outer faces of a volume, the cells of
/// a surface, a line, or points. A volume's inside is never looked at, so memory goes with the surface.
class OrderedShape
{
public:
    /// @param asPoints draw the points of a one-dimensional zone rather than the line through them
    /// @throws kernel::Interrupted, std::bad_alloc
    static ZoneShape create(kernel::Zone const& zone, bool asPoints, kernel::Progress const& progress = {});
};

} // namespace veldraw::app

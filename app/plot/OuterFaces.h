#pragma once

#include "app/plot/ZoneShape.h"
#include "kernel/base/Progress.h"
#include "kernel/data/Zone.h"

namespace veldraw::app {

/// What is to be drawn of finite elements: of volume cells the faces that one cell alone has, lines and surface cells as they
/// stand. In the order of the cells, so that the result does not depend on the number of threads.
class OuterFaces
{
public:
    /// Whether the cells of a zone can be looked through here; not polyhedra, nor more points than 32 bits can count.
    static bool canFind(kernel::Zone const& zone);

    /// @param zone one that canFind() accepts, whose cells name points that exist
    /// @throws kernel::Interrupted, std::bad_alloc
    static ZoneShape create(kernel::Zone const& zone, kernel::Progress const& progress);
};

} // namespace veldraw::app

#pragma once

#include "app/plot/CutLevels.h"
#include "app/plot/ZoneShape.h"
#include "kernel/base/Progress.h"
#include "kernel/frames/Cut.h"

namespace veldraw::app {

/// Makes the shape of what is drawn of a zone where a cut goes through it: polygons where cells have a volume, lines where they are
/// flat. Hidden cells are left out.
class CutShape
{
public:
    /// @param levels of the cut in the zone; without values that it needs there is nothing to draw
    /// @throws kernel::Interrupted, std::bad_alloc
    static ZoneShape create(kernel::Zone const& zone, kernel::Cut const& cut, CutLevels levels,
                            kernel::Progress const& progress);
};

} // namespace veldraw::app

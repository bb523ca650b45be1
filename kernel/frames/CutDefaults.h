#pragma once

#include "kernel/frames/Cut.h"

namespace veldraw::kernel {

struct Frame;

/// Between which positions a cut meets data.
struct CutLimits
{
    double min = 0.0;
    double max = 0.0;
};

/// Limits of the positions of a cut in the enabled zones of a frame's data set: of the coordinate or the values, of the index in the
/// longest ordered zone, or of a plane's way through the box of the coordinates. Both are 0, or 1 for an index, where nothing is known.
/// Never loads values.
CutLimits limitsOf(Cut const& cut, Frame const& frame);

/// A cut of the kind through the middle of what a frame shows: a plane lies across the diagonal, an iso-surface is of the contour
/// variable.
Cut defaultCut(CutKind kind, Frame const& frame);

} // namespace veldraw::kernel

#pragma once

#include "kernel/frames/Frame.h"

namespace veldraw::kernel {

/// Lays out a frame for its data set: axes and vector by the variables' names, contour variable, plot type, one line map.
///
/// Axes are X, Y, Z in either case, with or without a unit ("x [m]"), or CoordinateX and the like; without an X and a Y the
/// first three variables. All zones I-ordered and two or more variables: a line plot; a zone with three dimensions, or a
/// Z that is not the same everywhere: 3D; else 2D. Without zones or variables: a sketch.
///
/// The vector is U, V, W or a velocity, else the first one whose components are called "name_X", "name_Y", "name_Z".
/// @throws std::bad_alloc
void layOut(Frame& frame);

/// A line map of the first zone, with the second variable over the first. @throws std::bad_alloc
LineMap defaultLineMap(DataSet const& dataSet, std::size_t number);

} // namespace veldraw::kernel

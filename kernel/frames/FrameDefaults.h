#pragma once

#include "kernel/frames/Frame.h"

namespace veldraw::kernel {

/// Sets what a frame shows of its data set at first: axes, vector, contour variable, plot type, a line map, stretched axes.
///
/// - Axes: the variables called X, Y and Z in either case, with or without a unit ("x [m]"), or CoordinateX and the like. If X or
///   Y is missing, the first three variables.
/// - Vector: the variables called U, V and W or as a velocity, else the first ones called "name_X", "name_Y", "name_Z".
/// - Contour variable: the first enabled variable that is on no axis.
/// - Plot type: a line plot if all zones are curves (I-ordered, not scattered) and there are two or more variables; 3D if a
///   zone has three dimensions or Z is not constant; else 2D. A sketch if there are no zones or no variables.
/// - Solution time: the first one of the data set, 0 where it has no strands.
/// - Stretched axes: if a picture to scale would be a mere line (see isMereLine()).
///
/// A frame without a data set is not changed. @throws std::bad_alloc
void layOut(Frame& frame);

/// Calls layOut() if it has not been called for the frame, which is then a sketch without axes.
void layOutIfFresh(Frame& frame);

/// One-based numbers of the variables whose names layOut() takes for X, Y and Z. All are 0 if X or Y is missing; the third
/// is 0 if only Z is missing.
std::array<int, 3> coordinatesByName(DataSet const& dataSet);

/// One-based number of the variable called time in either case, with or without a unit; 0 if there is none.
int timeByName(DataSet const& dataSet);

/// One-based number of the variable called t, with or without a unit; 0 if there is none. A large T is a temperature, and a small
/// one may be.
int timeByLetter(DataSet const& dataSet);

/// Whether data with these extents along the axes would look like a line in a picture to scale: the longest extent is more than
/// 500 times the second longest. False for data that really are a line: the second longest is less than 1e-12 of the longest.
bool isMereLine(std::array<double, 3> lengths);

/// A line map called "Map @p number" of the first zone: the first variable along X, the second along Y. @throws std::bad_alloc
LineMap defaultLineMap(DataSet const& dataSet, std::size_t number);

} // namespace veldraw::kernel

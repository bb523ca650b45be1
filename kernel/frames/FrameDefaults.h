#pragma once

#include "kernel/frames/Frame.h"

namespace veldraw::kernel {

/// Lays out a frame for its data set: axes and vector by the variables' names, contour variable, plot type, one line map.
///
/// Axes are X, Y, Z in either case, with or without a unit ("x [m]"), or CoordinateX and the like; without an X and a Y the
/// first three variables. All zones curves (I-ordered, not scattered) and two or more variables: a line plot; a zone with three
/// dimensions, or a Z that is not the same everywhere: 3D; else 2D. Without zones or variables: a sketch. The axes are
/// stretched where a picture to scale would be a mere line.
///
/// The vector is U, V, W or a velocity, else the first one whose components are called "name_X", "name_Y", "name_Z".
/// @throws std::bad_alloc
void layOut(Frame& frame);

/// The same for a frame that has not been laid out yet; any other frame stays as it is.
void layOutIfFresh(Frame& frame);

/// Numbers of the variables called X, Y and Z as layOut() knows them; 0 for a Z that is not there, all 0 without both X and Y.
std::array<int, 3> coordinatesByName(DataSet const& dataSet);

/// Number of the variable called t or time, with or without a unit; 0 if there is none.
int timeByName(DataSet const& dataSet);

/// Whether a picture to scale of something with these lengths along the axes would show no more than a line: the longest is
/// more than 500 times the next one. What is thinner than 1e-12 of it is a line indeed.
bool isMereLine(std::array<double, 3> lengths);

/// A line map of the first zone, with the second variable over the first. @throws std::bad_alloc
LineMap defaultLineMap(DataSet const& dataSet, std::size_t number);

} // namespace veldraw::kernel

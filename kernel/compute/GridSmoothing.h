#pragma once

#include "kernel/base/Progress.h"
#include "kernel/compute/GridAxes.h"
#include "kernel/compute/SmoothingRule.h"
#include "kernel/compute/SmoothingValues.h"

namespace veldraw::kernel {

/// Smooths the values of a grid of one, two or three dimensions by the next values along each axis.
///
/// The first and the last values along an axis are its ends. The condition says what happens to them after each pass:
/// nothing (Fixed), they get the next inner value (First Order), or the value that continues the next two inner ones linearly
/// (Second Order). Edges and corners follow from the faces: the ends of the first axis are set, then those of the second one,
/// edges included, then those of the third. An axis that has not that many inner values holds its ends as they are, and so
/// does a hole among the values that one at an end follows.
///
/// Holes have no part in the means of their neighbors. A value whose neighbors are all holes stays.
///
/// Several passes are made over a part of the grid while it is in the cache. Results depend neither on the parts nor on the
/// number of threads. Beyond the results it takes two arrays of doubles at most, none for few passes; for some tens of passes over
/// floats it computes in floats, and takes two arrays of these.
/// @param values not examined yet; when it returns, all new values have been stored
/// @throws Interrupted, std::bad_alloc
SmoothingOutcome smoothGrid(ValueGrid const& grid, SmoothingRule const& rule, BoundaryCondition_e condition,
                            SmoothingValues& values, Progress& progress);

} // namespace veldraw::kernel

#pragma once

#include "kernel/base/Progress.h"
#include "kernel/compute/NeighborLists.h"
#include "kernel/compute/SmoothingValues.h"
#include "kernel/mesh/CellParts.h"

namespace veldraw::kernel {

/// The neighbours of the values of a finite-element zone: of a point those at the other ends of the edges of cells, each once
/// however many cells have the edge; of a cell those with which it has a side in common.
///
/// The border has no neighbours, or only itself: points on a side that one cell alone has, and cells with such a side. Solids, surfaces and
/// lines of a mixed zone have each their own border. Holes neither have nor are neighbours.
/// A cell that has a side twice, since it is collapsed there, does not count at it (SideMatch).
/// @param values examined; memory for the new ones counts as taken
/// @param progress of this part of the work alone; its total is set
/// @throws Interrupted, NotEnoughMemory before lists are made, std::bad_alloc, std::runtime_error with a reason
NeighborLists neighborsOfPoints(CellParts const& cells, std::int64_t pointCount, SmoothingValues const& values,
                                Progress& progress);
NeighborLists neighborsOfCells(CellParts const& cells, std::int64_t pointCount, SmoothingValues const& values,
                               Progress& progress);

} // namespace veldraw::kernel

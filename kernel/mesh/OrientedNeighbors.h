#pragma once

#include "kernel/compute/NeighborLists.h"
#include "kernel/mesh/CellParts.h"
#include "kernel/mesh/NeighborFill.h"
#include "kernel/mesh/PointOrder.h"

#include <optional>

namespace veldraw::kernel {

/// The neighbours of the points of surfaces that are oriented alike, so that no two go along an edge in the same direction, as in most files. Each
/// neighbour comes up once there, which takes half the time and memory of other surfaces.
///
/// A point at the border, where an edge is gone along in one direction only, is its own and only neighbour, perhaps several times.
/// @param cells surfaces, each with each of its edges once
/// @param spans the places of the points of groups of @p cellsOfEach cells each
/// @return nothing where two surfaces go along an edge in the same direction, or a point has very many edges
/// @throws Interrupted, NotEnoughMemory, std::bad_alloc
std::optional<NeighborLists> orientedNeighbors(CellParts const& cells, std::int64_t pointCount, PointOrder const& order,
                                               ZeroedArray<ListSpan> const& spans, std::int64_t cellsOfEach,
                                               RoomBeside const& room, Progress const& progress);

} // namespace veldraw::kernel

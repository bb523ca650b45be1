#pragma once

#include "kernel/base/Progress.h"
#include "kernel/base/RoomBeside.h"
#include "kernel/mesh/CellParts.h"

#include <functional>
#include <vector>

namespace veldraw::kernel {

/// Which cells have a side in common: sides are the same when they have the same points, in whatever order.
///
/// A cell that has a side twice is on both sides of it: it is collapsed there, as a triangle with two equal corners is at its edge,
/// or closes upon itself. It neither is the neighbour of another cell there nor hides that this one has nothing beside it.
///
/// Sides are put into lists by their lowest point, and compared within a list.
class SideMatch
{
public:
    /// A side and the cells that have it, in ascending order, without those that have it twice.
    struct Match
    {
        std::vector<std::uint32_t> points; ///< ascending, each once
        std::vector<std::uint32_t> cells;
    };

    /// @param pointCount the corners of the cells are below it; @param cells fewer than 2^32
    /// @throws Interrupted, std::bad_alloc, std::runtime_error with a reason
    SideMatch(CellParts const& cells, std::int64_t pointCount, RoomBeside const& room, Progress const& progress);

    /// Calls @p body with each side that some cell has once, those of a chunk of points one after the other, on all cores. Sides
    /// with fewer corners than their cells' dimensions, such as a face that is a mere line, are left out.
    /// @param body called with the match and the number of the chunk, as parallelFor() gives it for the points
    /// @throws Interrupted, std::bad_alloc
    void forEach(std::function<void(Match const&, std::int64_t chunk)> const& body, Progress const& progress) const;

    /// No less than the sides of cells that are matched in a chunk, each as often as cells have it.
    std::int64_t sidesOfChunk(std::int64_t chunk) const;

private:
    struct Place
    {
        std::uint32_t cell;
        std::uint32_t side;
    };

    class Matcher;

    CellParts const& m_cells;
    std::int64_t m_pointCount;
    RoomBeside m_room;
    ZeroedArray<std::int64_t> m_starts; // of the lists of points
    ZeroedArray<Place> m_places;
};

} // namespace veldraw::kernel

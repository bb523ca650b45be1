#pragma once

#include "kernel/base/Progress.h"
#include "kernel/base/ZeroedArray.h"
#include "kernel/mesh/CellParts.h"

#include <functional>

namespace veldraw::kernel {

/// Which cells have a side in common: sides are the same when they have the same points, in whatever order.
///
/// Sides are put into lists by their lowest point, and compared within a list.
class SideMatch
{
public:
    /// A side and the cells that have it, in ascending order.
    struct Match
    {
        std::vector<std::uint32_t> points; ///< ascending, each once
        std::vector<std::uint32_t> cells;
    };

    /// @param pointCount the corners of the cells are below it
    /// @throws Interrupted, std::bad_alloc
    SideMatch(CellParts const& cells, std::int64_t pointCount, Progress const& progress);

    /// Calls @p body with each side, those of a chunk of points one after the other, on all cores. Sides with fewer corners
    /// than their cells' dimensions, such as a face that is a mere line, are left out.
    /// @param body called with the match and the number of the chunk, as parallelFor() gives it for the points
    void forEach(std::function<void(Match const&, std::int64_t chunk)> const& body, Progress const& progress) const;

private:
    struct Place
    {
        std::uint32_t cell;
        std::uint32_t side;
    };

    class Matcher;

    CellParts const& m_cells;
    std::int64_t m_pointCount;
    ZeroedArray<std::int64_t> m_starts; // of the lists of points
    ZeroedArray<Place> m_places;
};

} // namespace veldraw::kernel

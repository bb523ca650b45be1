#pragma once

#include "kernel/data/DeferredLoad.h"
#include "kernel/frames/Frame.h"
#include "kernel/mesh/CellSearch.h"

namespace veldraw::kernel {

/// Why the cells of a zone cannot give values to points in them; empty when they can. @param dimensions of the plot, 2 or 3
std::string reasonAgainstCells(std::string const& zoneName, int dimensionality, int dimensions);

/// The cells of a zone along the axes of a frame. @param load has loaded dimensions and coordinates of the zone, a one-based number
/// @throws std::runtime_error with the reason where its dimensions, which may be known only now, speak against it
ZoneCells sourceCells(Frame const& frame, DeferredLoad const& load, int zone, int dimensions);

/// The cells in which places are, one place after the other; most lie in the cell of the one before.
class CellReader
{
public:
    explicit CellReader(std::vector<ZoneCells> const& zones)
        : m_zones(zones)
    {
    }

    /// Number of parts that the cell of the last place consists of.
    std::size_t partCount() const { return m_geometry.partCount(); }

    /// The weights of the corners at a place in a cell that contains it.
    std::vector<WeightedPoint> const& weights(CellSearch::Found const& found, Point const& place);

private:
    std::vector<ZoneCells> const& m_zones;
    std::size_t m_zone = 0;
    std::int64_t m_slot = -1;
    ZoneCells::Corners m_room{};
    CellGeometry m_geometry;
    std::vector<WeightedPoint> m_weights;
};

} // namespace veldraw::kernel

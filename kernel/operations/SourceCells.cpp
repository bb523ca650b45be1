#include "kernel/operations/SourceCells.h"

#include <stdexcept>

namespace veldraw::kernel {

std::string reasonAgainstCells(std::string const& zoneName, int dimensionality, int dimensions)
{
    if (dimensionality < 2) {
        return "The source zone \"" + zoneName + "\" has no cells with an area or a volume.";
    }
    return dimensionality <= dimensions
               ? ""
               : "The source zone \"" + zoneName + "\" has cells with a volume, which have no place in a 2D plot.";
}

ZoneCells sourceCells(Frame const& frame, DeferredLoad const& load, int zone, int dimensions)
{
    Zone const& found = *frame.dataSet->zone(zone);
    ZoneDimensions const size = load.blankedDimensionsOf(found);
    Zone measured({}, found.type, size.i, size.j, size.k);
    measured.connectivity = size.connectivity;
    std::string const reason = reasonAgainstCells(found.name, measured.dimensionality(), dimensions);
    if (!reason.empty()) {
        throw std::runtime_error(reason);
    }
    ZoneCells::Coordinates coordinates;
    for (std::size_t axis = 0; axis < static_cast<std::size_t>(dimensions); ++axis) {
        coordinates[axis] = load.valuesOf(*frame.dataSet->field(zone, frame.axisVariables()[axis]));
    }
    return {found.type, size, std::move(coordinates)};
}

std::vector<WeightedPoint> const& CellReader::weights(CellSearch::Found const& found, Point const& place)
{
    if (found.slot != m_slot || found.zone != m_zone) {
        m_zone = found.zone;
        m_slot = found.slot;
        m_geometry.read(m_zones[m_zone], m_zones[m_zone].cell(m_slot, m_room));
    }
    m_geometry.weigh(m_geometry.locate(place).value(), m_weights);
    return m_weights;
}

} // namespace veldraw::kernel

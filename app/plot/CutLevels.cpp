#include "app/plot/CutLevels.h"

#include "kernel/mesh/PointMeans.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace veldraw::app {

using kernel::CutKind;

CutLevels::CutLevels(kernel::DataSet const& dataSet, int zone, std::array<int, 3> const& axes, kernel::Cut const& cut)
    : m_level(cut.position)
    , m_isOfValues(cut.kind == CutKind::IsoSurface)
    , m_areKnown(!cut.isOfIndex())
{
    if (cut.axis() >= 0 && !cut.isOfIndex()) {
        addTerm(dataSet, zone, axes[static_cast<std::size_t>(cut.axis())], 1.0);
    } else if (cut.kind == CutKind::Plane) {
        double const length = std::hypot(cut.normal[0], cut.normal[1], cut.normal[2]);
        for (std::size_t axis = 0; axis < 3; ++axis) {
            double const weight = cut.normal[axis] / length;
            m_level += weight * cut.origin[axis];
            if (axes[axis] > 0 && std::abs(weight) > 0.0)
                addTerm(dataSet, zone, axes[axis], weight);
        }
    } else if (cut.kind == CutKind::IsoSurface) {
        addTerm(dataSet, zone, dataSet.variableNumber(cut.variable), 1.0);
    }
    m_areKnown = m_areKnown && !m_terms.empty();
}

void CutLevels::addTerm(kernel::DataSet const& dataSet, int zone, int variable, double weight)
{
    kernel::Field const* const field = dataSet.field(zone, variable);
    if (!field || !field->isLoaded()) {
        m_areKnown = false;
        return;
    }
    auto const values = field->group() ? field->group()->buffer() : nullptr;
    bool const isOfCells = values && field->location() == ValueLocation_CellCentered;
    kernel::Zone const& owner = *dataSet.zones()[static_cast<std::size_t>(zone - 1)];
    if (values && (values->size() < owner.valueCount(field->location()) || (isOfCells && !m_isOfValues)))
        m_areKnown = false;
    else if (isOfCells)
        m_ofCells = values;
    m_terms.push_back({kernel::QuickReader(values), weight});
}

void CutLevels::prepare(kernel::Zone const& zone, kernel::Progress const& progress)
{
    if (!m_ofCells)
        return;
    kernel::ZoneDimensions const dimensions{zone.i, zone.j, zone.k, zone.connectivity, zone.blanking};
    m_terms = {{kernel::QuickReader(kernel::meansAtPoints(zone.type, dimensions, *m_ofCells, progress)), 1.0}};
    m_ofCells.reset();
}

double CutLevels::at(std::int64_t point) const
{
    double level = -m_level;
    for (Term const& term : m_terms)
        level += term.weight * term.values.at(point);
    return level;
}

void CutLevels::tellSides(std::int64_t first, std::int64_t count, unsigned char* sides) const
{
    constexpr std::int64_t blockSize = 512;
    double levels[blockSize];
    double values[blockSize];
    for (std::int64_t start = 0; start < count; start += blockSize) {
        std::int64_t const size = std::min(blockSize, count - start);
        std::fill_n(levels, size, -m_level);
        for (Term const& term : m_terms) {
            term.values.read(first + start, size, values);
            for (std::int64_t n = 0; n < size; ++n)
                levels[n] += term.weight * values[n];
        }
        for (std::int64_t n = 0; n < size; ++n) {
            bool const isSomewhere = std::abs(levels[n]) <= std::numeric_limits<double>::max();
            int const side = (levels[n] < 0.0 ? behind : 0) | (levels[n] > 0.0 ? before : 0);
            sides[start + n] = static_cast<unsigned char>(!isSomewhere ? nowhere : side != 0 ? side : onSurface);
        }
    }
}

} // namespace veldraw::app

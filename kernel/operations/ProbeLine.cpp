#include "kernel/operations/ProbeLine.h"

#include "kernel/base/Text.h"
#include "kernel/compute/ValueBlock.h"
#include "kernel/mesh/MixedValue.h"
#include "kernel/operations/ProbedLineChange.h"
#include "kernel/operations/ReportText.h"
#include "kernel/operations/SourceCells.h"
#include "kernel/storage/ValueType.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <optional>
#include <set>

namespace veldraw::kernel {

namespace {

constexpr double valueOutside = std::numeric_limits<double>::quiet_NaN();

/// What the zones have of a variable.
struct SourceOfValues
{
    QuickReader values;
    bool isPassive;
    bool isOfCells;
};

} // namespace

NumberSet ProbeLine::zonesFor(Frame const& frame)
{
    NumberSet zones;
    int const most = frame.plotType == PlotType_Cartesian2D ? 2 : 3;
    for (int const number : frame.zonesInSight()) {
        int const dimensionality = frame.dataSet->zone(number)->dimensionality();
        if (dimensionality >= 2 && dimensionality <= most) {
            zones.insert(number);
        }
    }
    return zones;
}

std::string ProbeLine::reasonAgainst() const
{
    bool const isFieldPlot = frame()->plotType == PlotType_Cartesian2D || frame()->plotType == PlotType_Cartesian3D;
    if (!isFieldPlot) {
        return "Only a 2D or 3D plot tells where the points are.";
    }
    if (char const* const reason = reasonAgainstZones(dataSet(), m_zones)) {
        return reason;
    }
    std::string reason = reasonAgainstLine();
    for (std::size_t axis = 0; axis < dimensions() && reason.empty(); ++axis) {
        reason = reasonAgainstAxis(axis);
        for (auto zone = m_zones.begin(); zone != m_zones.end() && reason.empty(); ++zone) {
            reason = reasonAgainstCoordinate(axis, *zone);
        }
    }
    for (auto zone = m_zones.begin(); zone != m_zones.end() && reason.empty(); ++zone) {
        reason = reasonAgainstZone(*zone);
    }
    return reason;
}

std::string ProbeLine::reasonAgainstLine() const
{
    if (m_points < 2 || m_points > mostPoints) {
        return "A line has 2 to " + std::to_string(mostPoints) + " points.";
    }
    bool areFinite = std::isfinite(length());
    for (std::size_t axis = 0; axis < dimensions(); ++axis) { // std::hypot() of three may overlook what is no number
        areFinite = areFinite && std::isfinite(m_from[axis]) && std::isfinite(m_to[axis]);
    }
    if (!areFinite) {
        return "The ends of the line are no finite numbers.";
    }
    return length() > 0 ? "" : "The ends of the line are at the same place.";
}

std::string ProbeLine::reasonAgainstZone(int zone) const
{
    Zone const& found = *dataSet().zone(zone);
    return found.isDeferred() ? ""
                              : reasonAgainstCells(found.name, found.dimensionality(), static_cast<int>(dimensions()));
}

double ProbeLine::length() const
{
    double const z = dimensions() == 3 ? m_to[2] - m_from[2] : 0.0;
    return std::hypot(m_to[0] - m_from[0], m_to[1] - m_from[1], z);
}

std::shared_ptr<DeferredLoad> ProbeLine::needs()
{
    m_load = std::make_shared<DeferredLoad>(dataSet());
    for (int const zone : m_zones) {
        m_load->addDimensions(zone);
        m_load->obey(frame()->valueBlanking, zone);
        for (int variable = 1; variable <= dataSet().variableCount(); ++variable) {
            m_load->addField(zone, variable);
        }
    }
    return m_load;
}

int ProbeLine::distanceVariable(DataSet const& dataSet)
{
    auto const& variables = dataSet.variables();
    auto const found = std::find_if(variables.begin(), variables.end(),
                                    [](auto const& variable) { return variable->name == distanceName; });
    return found == variables.end() ? 0 : static_cast<int>(found - variables.begin()) + 1;
}

/// Room for the values of all variables that have some.
ProbeLine::Values ProbeLine::allocate() const
{
    std::array<int, 3> const axes = frame()->axisVariables();
    int const distance = distanceVariable();
    Values values;
    for (int variable = 1; variable <= dataSet().variableCount(); ++variable) {
        bool isWide = variable == distance || std::count(axes.begin(), axes.end(), variable) > 0;
        bool hasValues = isWide;
        for (int const zone : m_zones) {
            Field const& field = *dataSet().field(zone, variable);
            hasValues = hasValues || !field.isPassive();
            isWide = isWide || (!field.isPassive() && computedType(field.type()) == FieldDataType_Double);
        }
        FieldDataType_e const type = isWide ? FieldDataType_Double : FieldDataType_Float;
        values.push_back(hasValues ? Buffer::allocate(type, m_points) : nullptr);
    }
    if (distance == 0) {
        values.push_back(Buffer::allocate(FieldDataType_Double, m_points));
    }
    return values;
}

/// Writes the coordinates of the points, and how far they are from the first.
void ProbeLine::setPlaces(Values& values) const
{
    std::array<int, 3> const axes = frame()->axisVariables();
    int const known = distanceVariable();
    Buffer& distances = known > 0 ? *values[static_cast<std::size_t>(known) - 1] : *values.back();
    double const way = length();
    for (std::int64_t point = 0; point < m_points; ++point) {
        double const share = static_cast<double>(point) / static_cast<double>(m_points - 1);
        distances.setValue(point, share * way);
        for (std::size_t axis = 0; axis < dimensions(); ++axis) {
            // From both ends, so that these are exact.
            double const place = (1 - share) * m_from[axis] + share * m_to[axis];
            values[static_cast<std::size_t>(axes[axis]) - 1]->setValue(point, place);
        }
    }
}

ValuePlaces ProbeLine::placesOf(Values const& values) const
{
    ValuePlaces::Coordinates coordinates;
    for (std::size_t axis = 0; axis < dimensions(); ++axis) {
        coordinates[axis] = values[static_cast<std::size_t>(frame()->axisVariables()[axis]) - 1];
    }
    return {ZoneType_Ordered,
            {m_points, 1, 1, nullptr, nullptr},
            std::move(coordinates),
            static_cast<int>(dimensions()),
            ValueLocation_Nodal};
}

void ProbeLine::compute(Progress& progress)
{
    m_values = allocate();
    setPlaces(m_values);
    std::vector<ZoneCells> cells;
    for (int const zone : m_zones) {
        cells.push_back(sourceCells(*frame(), *m_load, zone, static_cast<int>(dimensions())));
    }
    progress.setTotal(std::accumulate(cells.begin(), cells.end(), progress.done() + 2 * std::int64_t{m_points},
                                      [](auto sum, auto const& zone) { return sum + zone.slotCount(); }));
    std::optional<Progress> part;
    part.emplace(progress, m_points);
    PointBins const bins(placesOf(m_values), static_cast<int>(dimensions()), *part);
    CellSearch search(bins);
    for (ZoneCells const& zone : cells) {
        part.emplace(progress, zone.slotCount());
        search.addZone(zone, *part);
    }
    part.emplace(progress, m_points);
    m_report = report(fill(m_values, search, bins, cells, *part));
}

/// Stores the values of all variables that are neither on an axis nor the distance. @return number of points in no cell
std::int64_t ProbeLine::fill(Values& values, CellSearch const& search, PointBins const& bins,
                             std::vector<ZoneCells> const& cells, Progress& progress) const
{
    std::array<int, 3> const axes = frame()->axisVariables();
    std::vector<int> variables;
    std::vector<std::vector<SourceOfValues>> sources; // by variable and zone
    for (int variable = 1; variable <= dataSet().variableCount(); ++variable) {
        bool const isOfPlaces = variable == distanceVariable() || std::count(axes.begin(), axes.end(), variable) > 0;
        if (isOfPlaces || !values[static_cast<std::size_t>(variable) - 1]) {
            continue;
        }
        variables.push_back(variable);
        sources.emplace_back();
        for (int const zone : m_zones) {
            Field const& field = *dataSet().field(zone, variable);
            sources.back().push_back({QuickReader(m_load->valuesOf(field)), field.isPassive(),
                                      field.location() == ValueLocation_CellCentered});
        }
    }
    CellReader reader(cells);
    std::int64_t outside = 0;
    progress.setTotal(m_points);
    for (std::size_t position = 0; position < bins.size(); ++position) {
        if (position % static_cast<std::size_t>(blockSize) == 0) {
            progress.check();
            progress.advance(std::min(blockSize, static_cast<std::int64_t>(bins.size() - position)));
        }
        auto const found = search.cellAt(position);
        std::vector<WeightedPoint> const* const weights =
            found ? &reader.weights(*found, bins.point(position)) : nullptr;
        outside += found ? 0 : 1;
        for (std::size_t n = 0; n < variables.size(); ++n) {
            SourceOfValues const* const source = found ? &sources[n][found->zone] : nullptr;
            double const value = source == nullptr || source->isPassive ? valueOutside
                                 : source->isOfCells                    ? source->values.at(found->slot)
                                                                        : mixedValue(source->values, *weights);
            values[static_cast<std::size_t>(variables[n]) - 1]->setValue(bins.slot(position), value);
        }
    }
    return outside;
}

std::string ProbeLine::report(std::int64_t outside) const
{
    std::vector<std::string> names;
    for (int const zone : m_zones) {
        names.push_back(dataSet().zone(zone)->name);
    }
    std::string const text = name() + ": " + counted(m_points, "point") + " in " + listed(names) + ". ";
    return text + (outside == 0 ? "No point was outside the cells."
                                : "Outside the cells: " + counted(outside, "point") + ", without values.");
}

std::shared_ptr<Change> ProbeLine::makeChange(EventHub& events)
{
    std::set<std::string> taken;
    for (auto const& zone : dataSet().zones()) {
        taken.insert(zone->name);
    }
    auto const zone = std::make_shared<Zone>(freeName("Line", taken), ZoneType_Ordered, m_points, 1, 1);
    zone->fields.resize(m_values.size());
    std::vector<NewField> fields;
    for (std::size_t position = 0; position < m_values.size(); ++position) {
        if (m_values[position]) {
            fields.push_back(
                {position, Field(std::make_shared<ShareGroup>(std::move(m_values[position])), ValueLocation_Nodal)});
        }
    }
    bool const isNew = distanceVariable() == 0;
    return std::make_shared<ProbedLineChange>(events, frame()->dataSet,
                                              isNew ? std::make_shared<Variable>(distanceName) : nullptr,
                                              ZoneAddition::Copy(zone, std::move(fields)));
}

CommandText ProbeLine::command() const
{
    return CommandText("probe-line")
        .numbers("zones", m_zones)
        .reals("from", m_from)
        .reals("to", m_to)
        .number("points", m_points);
}

} // namespace veldraw::kernel

#include "kernel/operations/Interpolation.h"

#include "kernel/compute/ValueBlock.h"

#include <algorithm>
#include <chrono>

namespace veldraw::kernel {

Interpolation::Interpolation(UniqueId frame, NumberSet sources, int destination, NumberSet variables)
    : FrameDataOperation(frame)
    , m_sources(std::move(sources))
    , m_destination(destination)
    , m_variables(std::move(variables))
{
}

std::string Interpolation::reasonAgainst() const
{
    bool const isFieldPlot = frame()->plotType == PlotType_Cartesian2D || frame()->plotType == PlotType_Cartesian3D;
    if (!isFieldPlot) {
        return "Only a 2D or 3D plot tells where the points are.";
    }
    if (m_sources.empty()) {
        return "No source zones were given.";
    }
    NumberSet zones = m_sources;
    zones.insert(m_destination);
    if (char const* const reason = reasonAgainstZones(dataSet(), zones)) {
        return reason;
    }
    std::string const reason = reasonAgainstAxes();
    return reason.empty() ? reasonAgainstVariables() : reason;
}

std::string Interpolation::reasonAgainstAxes() const
{
    NumberSet zones = m_sources;
    zones.insert(m_destination);
    std::string reason;
    for (std::size_t axis = 0; axis < static_cast<std::size_t>(dimensions()) && reason.empty(); ++axis) {
        reason = reasonAgainstAxis(axis);
        for (auto zone = zones.begin(); zone != zones.end() && reason.empty(); ++zone) {
            reason = reasonAgainstCoordinate(axis, *zone);
        }
    }
    return reason;
}

std::string Interpolation::reasonAgainstVariables() const
{
    if (m_variables.empty()) {
        return "No variables were given.";
    }
    if (*m_variables.begin() < 1 || *m_variables.rbegin() > dataSet().variableCount()) {
        return noVariable;
    }
    std::array<int, 3> const axes = frame()->axisVariables();
    for (int const variable : m_variables) {
        std::string const name = quoted(dataSet().variable(variable)->name);
        if (std::count(axes.begin(), axes.end(), variable) > 0) {
            return "The variable " + name + " is on an axis.";
        }
        for (int const zone : m_sources) {
            if (dataSet().field(zone, variable)->isPassive()) {
                return "The variable " + name + " is passive in the source zone " + quoted(dataSet().zone(zone)->name) +
                       ": it has no values there.";
            }
        }
    }
    return {};
}

std::shared_ptr<DeferredLoad> Interpolation::needs()
{
    m_load = std::make_shared<DeferredLoad>(dataSet());
    NumberSet zones = m_sources;
    zones.insert(m_destination);
    for (int const zone : zones) {
        m_load->obey(frame()->valueBlanking, zone);
        for (int axis = 0; axis < dimensions(); ++axis) {
            m_load->addField(zone, frame()->axisVariables()[static_cast<std::size_t>(axis)]);
        }
        for (int const variable : m_variables) {
            m_load->addField(zone, variable);
        }
    }
    return m_load;
}

ValuePlaces Interpolation::places(int zone, ValueLocation_e location) const
{
    Zone const& found = *dataSet().zone(zone);
    ValuePlaces::Coordinates coordinates;
    for (int axis = 0; axis < dimensions(); ++axis) {
        coordinates[static_cast<std::size_t>(axis)] =
            values(zone, frame()->axisVariables()[static_cast<std::size_t>(axis)]);
    }
    return {found.type, m_load->blankedDimensionsOf(found), std::move(coordinates), dimensions(), location};
}

std::shared_ptr<Buffer const> Interpolation::values(int zone, int variable) const
{
    return m_load->valuesOf(*dataSet().field(zone, variable));
}

/// The type for the values of a variable that is passive in the destination: one that holds what the sources hold.
FieldDataType_e Interpolation::typeForPassive(int variable) const
{
    bool const isWide = std::any_of(m_sources.begin(), m_sources.end(), [&](int zone) {
        return computedType(dataSet().field(zone, variable)->type()) == FieldDataType_Double;
    });
    return isWide ? FieldDataType_Double : FieldDataType_Float;
}

void Interpolation::compute(Progress& progress)
{
    auto const start = std::chrono::steady_clock::now();
    m_results.clear();
    Zone const& zone = *dataSet().zone(m_destination);
    Fields fields;
    for (int const variable : m_variables) {
        progress.check();
        Progress copying(progress, 0);
        fields.push_back(
            std::make_unique<InterpolatedField>(*m_load, zone, variable, typeForPassive(variable), copying));
    }
    std::string const details = interpolate(fields, progress);
    m_report = report(fields, details, secondsSince(start));
    for (auto const& field : fields) {
        m_results.push_back(field->take(progress));
    }
}

std::string Interpolation::report(Fields const& fields, std::string const& details, double seconds) const
{
    std::int64_t cut = 0;
    bool hasRounded = false;
    for (auto const& field : fields) {
        cut += field->cutCount();
        hasRounded = hasRounded || field->isOfWholeNumbers();
    }
    std::int64_t const points = places(m_destination, ValueLocation_Nodal).slotCount();
    std::vector<std::string> variableNames;
    for (int const variable : m_variables) {
        variableNames.push_back(dataSet().variable(variable)->name);
    }
    std::vector<std::string> zoneNames;
    for (int const zone : m_sources) {
        zoneNames.push_back(dataSet().zone(zone)->name);
    }
    std::string text = name() + ": " + listed(variableNames) + " from " + listed(zoneNames) + " to " +
                       quoted(dataSet().zone(m_destination)->name) + " with " + counted(points, "point") + ", in " +
                       twoDigits(seconds) + " s.";
    text += details.empty() ? "" : " " + details;
    text += hasRounded ? " Results of whole-number variables were rounded." : "";
    text += cut > 0 ? " Beyond the limits of their type and cut to them: " + counted(cut, "value") + "." : "";
    return text;
}

std::shared_ptr<Change> Interpolation::makeChange(EventHub& events)
{
    std::vector<FieldReplacement::ZonePart> parts;
    parts.push_back({dataSet().zone(m_destination), std::move(m_results)});
    StateChangeEvent event{StateChange_ValuesAltered, {m_destination}, m_variables, {}, 0};
    return std::make_shared<FieldReplacement>(events, std::move(parts), std::move(event));
}

CommandText Interpolation::withZones(char const* command) const
{
    return CommandText(command)
        .numbers("zones", m_sources)
        .number("destination", m_destination)
        .numbers("variables", m_variables);
}

} // namespace veldraw::kernel

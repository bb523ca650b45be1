#include "tests/dialogs/datasetinfo/ZoneVarTexts.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace veldraw::tests {

namespace {

bool isLinePlot(kernel::Frame const& frame)
{
    return frame.plotType == PlotType_XYLine || frame.plotType == PlotType_PolarLine;
}

kernel::NumberSet zonesOfActiveLineMaps(kernel::Frame const& frame)
{
    kernel::NumberSet zones;
    for (kernel::LineMap const& map : frame.lineMaps) {
        for (int number = 1; map.active && number <= frame.dataSet->zoneCount(); ++number) {
            kernel::Zone const& zone = *frame.dataSet->zone(number);
            if (zone.id == map.zone && zone.enabled)
                zones.insert(number);
        }
    }
    return zones;
}

kernel::NumberSet enabledZones(kernel::DataSet const& dataSet)
{
    kernel::NumberSet zones;
    for (int number = 1; number <= dataSet.zoneCount(); ++number) {
        if (dataSet.zone(number)->enabled)
            zones.insert(number);
    }
    return zones;
}

// Of an ordered zone the last plane of slots in each direction that has cells belongs to no cell.
bool isSlotOfCell(kernel::Zone const& zone, std::int64_t slot)
{
    std::int64_t const i = slot % zone.i;
    std::int64_t const j = slot / zone.i % zone.j;
    std::int64_t const k = slot / (zone.i * zone.j);
    auto const has = [](std::int64_t index, std::int64_t dimension) { return dimension == 1 || index < dimension - 1; };
    return has(i, zone.i) && has(j, zone.j) && has(k, zone.k);
}

std::string dimensionText(std::int64_t dimension)
{
    return dimension < 0 ? "" : std::to_string(dimension);
}

} // namespace

namespace {

// Values that are read in their file take no memory.
bool isInFile(kernel::Field const& field)
{
    return !field.isPassive() && field.isLoaded() && field.group()->bytesInMemory() == 0;
}

} // namespace

std::string ZoneVarTexts::numberText(double number)
{
    char text[40];
    std::snprintf(text, sizeof text, "%g", number);
    return text;
}

ZoneVarTexts::Limits ZoneVarTexts::limitsInZone(kernel::Zone const& zone, int variable)
{
    kernel::Field const& field = zone.fields.at(static_cast<std::size_t>(variable - 1));
    Limits limits;
    if (field.isPassive())
        return limits;
    // Nobody goes through all values of a file, also where some have been altered.
    if (!field.isLoaded() || field.group()->isMapped()) {
        kernel::ValueRange const told = field.group()->knownRange().range();
        return {told.isValid(), told.state == kernel::ValueRange::State::Estimated, told.min, told.max};
    }
    bool const isOrderedCells = zone.isOrdered() && field.location() == ValueLocation_CellCentered;
    kernel::Buffer const& values = *field.group()->buffer();
    for (std::int64_t slot = 0; slot < values.size(); ++slot) {
        double const value = values.value(slot);
        if (!std::isfinite(value) || (isOrderedCells && !isSlotOfCell(zone, slot)))
            continue;
        limits.min = limits.isKnown ? std::min(limits.min, value) : value;
        limits.max = limits.isKnown ? std::max(limits.max, value) : value;
        limits.isKnown = true;
    }
    return limits;
}

ZoneVarTexts::Limits ZoneVarTexts::limitsIn(kernel::DataSet const& dataSet, kernel::NumberSet const& zones,
                                            int variable)
{
    Limits all;
    bool hasUnseen = false; // values that are in a file still
    for (int const number : zones) {
        Limits const limits = limitsInZone(*dataSet.zone(number), variable);
        if (!limits.isKnown) {
            kernel::Field const& field = *dataSet.field(number, variable);
            hasUnseen = hasUnseen || (!field.isPassive() && (!field.isLoaded() || field.group()->isMapped()));
            continue;
        }
        all.min = all.isKnown ? std::min(all.min, limits.min) : limits.min;
        all.max = all.isKnown ? std::max(all.max, limits.max) : limits.max;
        all.isKnown = true;
        all.isEstimated = all.isEstimated || limits.isEstimated;
    }
    all.isEstimated = all.isKnown && (all.isEstimated || hasUnseen);
    return all;
}

void ZoneVarTexts::tellZone(kernel::Zone const& zone)
{
    static char const* const types[] = {"Ordered",      "FE - Triangle", "FE - Quad",       "FE - Tetra", "FE - Brick",
                                        "FE - LineSeg", "FE - Polygon",  "FE - Polyhedron", "FE - Mixed"};
    bool const hasFaces = zone.type == ZoneType_FEPolygon || zone.type == ZoneType_FEPolyhedron;
    m_texts["zoneNameLineEdit"] = zone.name;
    m_texts["zoneTypeLineEdit"] = types[zone.type];
    m_texts["zoneIDimensionLabel"] = zone.isOrdered() ? "IMax:" : "Pts:";
    m_texts["zoneJDimensionLabel"] = zone.isOrdered() ? "JMax:" : "Elem:";
    m_texts["zoneKDimensionLabel"] = zone.isOrdered() ? "KMax:" : hasFaces ? "Faces:" : "";
    m_texts["zoneIDimensionLineEdit"] = dimensionText(zone.i);
    m_texts["zoneJDimensionLineEdit"] = dimensionText(zone.j);
    m_texts["zoneKDimensionLineEdit"] = zone.isOrdered() || hasFaces ? dimensionText(zone.k) : "";
    m_texts["zoneSolutionTimeLineEdit"] = numberText(zone.solutionTime);
    m_texts["zoneStrandIDLineEdit"] = zone.strand == 2147483646 ? "" : std::to_string(zone.strand);
}

void ZoneVarTexts::tellVariable(kernel::Zone const& zone, kernel::Variable const& variable, int number)
{
    static char const* const types[] = {"", "Float", "Double", "Long Integer", "Short Integer", "Byte", "Bit"};
    kernel::Field const& field = zone.fields.at(static_cast<std::size_t>(number - 1));
    Limits const limits = limitsInZone(zone, number);
    std::string const instead = field.isPassive() ? "N/A" : "Not Loaded";
    m_texts["varNameLineEdit"] = variable.name;
    m_texts["varTypeLineEdit"] = types[field.type()];
    m_texts["varLocationLineEdit"] = field.location() == ValueLocation_Nodal ? "Nodal" : "Cell Centered";
    bool const isMarked = limits.isEstimated && field.group()->isMapped();
    m_texts["varStatusLineEdit"] = field.isPassive()  ? "Passive"
                                   : isInFile(field)  ? "Map"
                                   : field.isLoaded() ? "Loaded"
                                                      : "Not Loaded";
    m_texts["varSelectedMinLabel"] = isMarked ? "Min (est):" : "Min:";
    m_texts["varSelectedMaxLabel"] = isMarked ? "Max (est):" : "Max:";
    m_texts["varSelectedMinLineEdit"] = limits.isKnown ? numberText(limits.min) : instead;
    m_texts["varSelectedMaxLineEdit"] = limits.isKnown ? numberText(limits.max) : instead;
}

void ZoneVarTexts::tellActive(kernel::Session const& session, bool isSelected, int variable)
{
    auto const frame = session.activeFrame();
    bool const hasData = frame && frame->dataSet;
    kernel::NumberSet drawn;
    bool hasMaps = false;
    if (hasData && isLinePlot(*frame)) {
        drawn = zonesOfActiveLineMaps(*frame);
        hasMaps = !drawn.empty();
    } else if (hasData) {
        hasMaps = !enabledZones(*frame->dataSet).empty();
        drawn = frame->plotType == PlotType_Sketch ? kernel::NumberSet() : enabledZones(*frame->dataSet);
    }
    if (isSelected)
        m_active = limitsIn(*frame->dataSet, drawn, variable);
    bool const isShown = hasMaps && m_active.isKnown;
    m_texts["varActiveMinLineEdit"] = isShown ? numberText(m_active.min) : "--------";
    m_texts["varActiveMaxLineEdit"] = isShown ? numberText(m_active.max) : "--------";
    if (isSelected) {
        m_texts["varActiveMinLabel"] = m_active.isEstimated ? "Min (est):" : "Min:";
        m_texts["varActiveMaxLabel"] = m_active.isEstimated ? "Max (est):" : "Max:";
    }
    if (frame)
        m_texts["varActiveLabel"] =
            isLinePlot(*frame) ? "Var Range -- Referenced Zones:" : "Var Range -- Active Zones:";
}

ZoneVarTexts::Texts const& ZoneVarTexts::fresh(kernel::Session const& session, int zone, int variable)
{
    auto const dataSet = session.activeDataSet();
    bool const isSelected = zone > 0 && variable > 0;
    if (zone > 0)
        tellZone(*dataSet->zone(zone));
    if (isSelected)
        tellVariable(*dataSet->zone(zone), *dataSet->variable(variable), variable);
    else
        m_texts["varSelectedMinLineEdit"] = m_texts["varSelectedMaxLineEdit"] = "";
    tellActive(session, isSelected, variable);
    m_texts["zoneTypeLabel"] = "Zone Type:";
    m_texts["zoneSolutionTimeLabel"] = "Solution Time:";
    m_texts["zoneStrandIDLabel"] = "Time Strand:";
    m_texts["varTypeLabel"] = "Var Type:";
    m_texts["varLocationLabel"] = "Var Location:";
    m_texts["varStatusLabel"] = "Var Status:";
    m_texts["varSelectedRangeLabel"] = "Var Range -- Selected Zone:";
    return m_texts;
}

} // namespace veldraw::tests

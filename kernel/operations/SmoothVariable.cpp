#include "kernel/operations/SmoothVariable.h"

#include "kernel/base/Parallel.h"
#include "kernel/base/Text.h"
#include "kernel/compute/GridSmoothing.h"
#include "kernel/compute/ListSmoothing.h"
#include "kernel/compute/ValueBlock.h"
#include "kernel/data/FieldReplacement.h"
#include "kernel/mesh/CellNeighbors.h"
#include "kernel/operations/ReportText.h"
#include "kernel/storage/CellSlots.h"

#include <algorithm>
#include <optional>
#include <stdexcept>

namespace veldraw::kernel {

namespace {

/// The grid of the values of an ordered zone.
ValueGrid gridOf(ZoneDimensions const& size, ValueLocation_e location)
{
    ValueGrid grid{{size.i, size.j, size.k}, {1, size.i, size.i * size.j}};
    if (location == ValueLocation_CellCentered) {
        for (std::int64_t& count : grid.counts) {
            count = cellsAlong(count);
        }
    }
    return grid;
}

char const* nameOf(BoundaryCondition_e condition)
{
    constexpr char const* names[] = {"Fixed", "First Order", "Second Order"};
    return names[condition];
}

} // namespace

SmoothVariable::SmoothVariable(UniqueId frame, int zone, int variable, int passes, double weight,
                               BoundaryCondition_e condition)
    : FrameDataOperation(frame)
    , m_zone(zone)
    , m_variable(variable)
    , m_rule{passes, weight}
    , m_condition(condition)
{
}

std::string SmoothVariable::variableName() const
{
    return quoted(dataSet().variable(m_variable)->name);
}

std::string SmoothVariable::reasonAgainst() const
{
    for (std::string const& reason : {reasonAgainstField(), reasonAgainstRule()}) {
        if (!reason.empty()) {
            return reason;
        }
    }
    return {};
}

std::string SmoothVariable::reasonAgainstRule() const
{
    if (m_rule.passes < 1) {
        return "The number of passes must be at least 1.";
    }
    bool const fits = m_rule.weight >= leastWeight && m_rule.weight <= mostWeight;
    return fits ? "" : "The coefficient must be greater than 0 and at most 0.95.";
}

std::string SmoothVariable::reasonAgainstField() const
{
    if (dataSet().field(m_zone, m_variable) == nullptr) {
        return dataSet().zone(m_zone) ? noVariable : noZone;
    }
    if (!zone().enabled) {
        return "The zone \"" + zone().name + "\" is disabled.";
    }
    if (!dataSet().variable(m_variable)->enabled) {
        return "The variable " + variableName() + " is disabled.";
    }
    if (field().isPassive()) {
        return "The variable " + variableName() + " is passive in the zone \"" + zone().name +
               "\": it has no values there.";
    }
    return reasonAgainstPlot();
}

std::string SmoothVariable::reasonAgainstPlot() const
{
    switch (frame()->plotType) {
    case PlotType_Cartesian2D:
    case PlotType_Cartesian3D: {
        std::array<int, 3> const axes = frame()->axisVariables();
        bool const isOnAxis = std::count(axes.begin(), axes.end(), m_variable) > 0;
        return isOnAxis ? "The variable " + variableName() + " is on an axis." : "";
    }
    case PlotType_XYLine:
    case PlotType_PolarLine:
        return isFunctionOfLineMap() ? "" : "No line map shows the variable " + variableName() + " as the function.";
    default:
        return "Only a 2D, 3D or line plot shows what is smoothed.";
    }
}

/// Whether a line map shows the variable over another one.
bool SmoothVariable::isFunctionOfLineMap() const
{
    auto const& maps = frame()->lineMaps;
    UniqueId const variable = dataSet().variable(m_variable)->id;
    return std::any_of(maps.begin(), maps.end(), [&](LineMap const& map) {
        auto const shown = dataSet().zone(dataSet().zoneNumber(map.zone));
        return shown && shown->enabled && (map.xDependsOnY ? map.xVariable : map.yVariable) == variable;
    });
}

std::shared_ptr<DeferredLoad> SmoothVariable::needs()
{
    m_load = std::make_shared<DeferredLoad>(dataSet());
    m_load->addField(m_zone, m_variable);
    m_load->obey(frame()->valueBlanking, m_zone);
    return m_load;
}

void SmoothVariable::compute(Progress& progress)
{
    auto const start = std::chrono::steady_clock::now();
    m_result.reset();
    ZoneDimensions const size = m_load->blankedDimensionsOf(zone());
    std::shared_ptr<Buffer const> const old = m_load->valuesOf(*field().group());
    SmoothingValues values(old, size.blanking ? size.blanking->hidden(field().location()) : nullptr);
    SmoothingOutcome const outcome = smooth(values, progress);
    m_report = report(values, outcome, secondsSince(start));
    if (values.changedCount() > 0) {
        m_result = values.take(progress);
    }
}

SmoothingOutcome SmoothVariable::smooth(SmoothingValues& values, Progress& progress) const
{
    ZoneDimensions const size = m_load->dimensionsOf(zone());
    ValueLocation_e const location = field().location();
    if (zone().isOrdered()) {
        return smoothGrid(gridOf(size, location), m_rule, m_condition, values, progress);
    }
    if (!size.connectivity) {
        throw std::runtime_error("The zone \"" + zone().name + "\" has no cells.");
    }
    std::int64_t const count = m_load->valueCount(zone(), location);
    std::int64_t const listing = 16 * count; // takes about as long as so many passes
    progress.setTotal(progress.done() + listing + m_rule.passes * count);
    Progress examining(progress, 0);
    forEachBlock(count, examining,
                 [&values](std::int64_t first, std::int64_t length) { values.examine(first, length); });
    CellParts const cells(zone().type, *size.connectivity);
    std::optional<Progress> part;
    part.emplace(progress, listing);
    NeighborLists const lists = location == ValueLocation_Nodal ? neighborsOfPoints(cells, size.i, values, *part)
                                                                : neighborsOfCells(cells, size.i, values, *part);
    part.emplace(progress, m_rule.passes * count);
    return smoothByLists(lists, m_rule, values, *part);
}

std::string SmoothVariable::report(SmoothingValues const& values, SmoothingOutcome const& outcome, double seconds) const
{
    BoundaryCondition_e const condition = zone().isOrdered() ? m_condition : BoundaryCondition_Fixed;
    std::string text = name() + ": " + variableName() + " of \"" + zone().name + "\", " +
                       std::to_string(m_rule.passes) + (m_rule.passes == 1 ? " pass" : " passes") +
                       " with the coefficient " + textOf(m_rule.weight) + " and the boundary " + nameOf(condition) +
                       ", in " + twoDigits(seconds) + " s. " + counted(values.changedCount(), "value") + " changed";
    auto const add = [&text](std::int64_t count, std::string const& what) {
        text += count > 0 ? ", " + std::to_string(count) + " " + what : "";
    };
    add(outcome.held, "held fixed at the border");
    add(values.leftOutCount(), "left out, hidden or no finite number");
    text += "; the largest change of the last pass was " + twoDigits(outcome.largestChange) + ".";
    text += values.isOfWholeNumbers() ? " Results were rounded to whole numbers." : "";
    std::int64_t const cut = values.cutCount();
    text += cut > 0 ? " Beyond the limits of their type and cut to them: " + counted(cut, "value") + "." : "";
    text += condition != m_condition ? " The border of a finite-element zone is always held fixed." : "";
    return text;
}

std::shared_ptr<Change> SmoothVariable::makeChange(EventHub& events)
{
    if (!m_result) {
        return nullptr;
    }
    std::vector<NewField> fields;
    auto const position = static_cast<std::size_t>(m_variable - 1);
    fields.push_back({position, Field(std::make_shared<ShareGroup>(std::move(m_result)), field().location())});
    std::vector<FieldReplacement::ZonePart> parts;
    parts.push_back({dataSet().zone(m_zone), std::move(fields)});
    StateChangeEvent event{StateChange_ValuesAltered, {m_zone}, {m_variable}, {}, 0};
    return std::make_shared<FieldReplacement>(events, std::move(parts), std::move(event));
}

CommandText SmoothVariable::command() const
{
    static constexpr char const* conditions[] = {"fixed", "first-order", "second-order"};
    return CommandText("smooth")
        .number("zone", m_zone)
        .number("variable", m_variable)
        .number("passes", m_rule.passes)
        .real("coefficient", m_rule.weight)
        .word("boundary", conditions[m_condition]);
}

} // namespace veldraw::kernel

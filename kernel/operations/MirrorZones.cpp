#include "kernel/operations/MirrorZones.h"

#include "kernel/operations/FieldReflection.h"
#include "kernel/operations/UntransformedVectors.h"

#include <algorithm>

namespace veldraw::kernel {

namespace {

/// The letter of the vector's component along a coordinate.
char componentAlong(char coordinate)
{
    return static_cast<char>('U' + (coordinate - 'X'));
}

/// The frame's coordinates and vector.
NumberSet mirroredAsAWhole(Frame const& frame)
{
    NumberSet variables;
    for (char const assignment : {'X', 'Y', 'Z', 'U', 'V', 'W'}) {
        variables.insert(frame.variableNumber(assignment));
    }
    return variables;
}

} // namespace

std::string MirrorZones::reasonAgainst() const
{
    if (char const* const reason = reasonAgainstZones(dataSet(), m_zones)) {
        return reason;
    }
    if (m_coordinate < 'X' || m_coordinate > 'Z') {
        return "There is no such axis.";
    }
    int const mirrored = frame()->variableNumber(m_coordinate);
    if (mirrored == 0) {
        return "The axis has no variable.";
    }
    int const component = frame()->variableNumber(componentAlong(m_coordinate));
    std::array<int, 3> const axes = frame()->axisVariables();
    bool const isOtherAxis =
        component != 0 && component != mirrored && std::count(axes.begin(), axes.end(), component) > 0;
    return isOtherAxis ? "The spatial and vector variables must be unique." : "";
}

/// The variables that change their sign.
NumberSet MirrorZones::mirroredVariables() const
{
    NumberSet variables{frame()->variableNumber(m_coordinate), frame()->variableNumber(componentAlong(m_coordinate))};
    variables.erase(0);
    return variables;
}

std::shared_ptr<DeferredLoad> MirrorZones::needs()
{
    m_remark = remarkOnUntransformedVectors(name(), dataSet(), m_zones, mirroredAsAWhole(*frame()),
                                            frame()->variableNumber('Z') != 0 ? 3 : 2);
    m_load = std::make_shared<DeferredLoad>(dataSet());
    NumberSet const variables = mirroredVariables();
    for (int const zone : m_zones) {
        for (int const variable : variables) {
            m_load->addField(zone, variable);
        }
    }
    return m_load;
}

void MirrorZones::compute(Progress& progress)
{
    m_copies.clear();
    FieldReflection reflection(mirroredVariables());
    reflection.setDeferred(*m_load);
    for (FieldReplacement::ZonePart& part : transformZones(dataSet(), m_zones, reflection, progress)) {
        m_copies.emplace_back(std::move(part.zone), std::move(part.fields));
    }
}

std::shared_ptr<Change> MirrorZones::makeChange(EventHub& events)
{
    return std::make_shared<ZoneAddition>(events, frame()->dataSet, std::move(m_copies));
}

CommandText MirrorZones::command() const
{
    return CommandText("mirror-zones").numbers("zones", m_zones).word("plane", std::string(1, m_coordinate));
}

} // namespace veldraw::kernel

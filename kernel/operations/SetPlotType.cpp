#include "kernel/operations/SetPlotType.h"

#include "kernel/operations/DataSetOperation.h"
#include "kernel/undo/SwapChange.h"

namespace veldraw::kernel {

namespace {

std::vector<std::string> assignmentPath(Frame const& frame, char letter)
{
    bool const is2D = frame.plotType == PlotType_Cartesian2D;
    if (letter == 'C') {
        return {"GlobalContour", "Var"};
    }
    bool const isAxis = letter >= 'X';
    char const* const axis = is2D ? "TwoDAxis" : "ThreeDAxis";
    char const* const vector = is2D ? "GlobalTwoDVector" : "GlobalThreeDVector";
    return {isAxis ? axis : vector, std::string(1, letter) + "Var"};
}

} // namespace

std::string SetPlotType::reasonAgainst() const
{
    bool const exists = m_plotType >= PlotType_Cartesian3D && m_plotType <= PlotType_PolarLine;
    return exists ? "" : "There is no such plot type.";
}

std::shared_ptr<Change> SetPlotType::makeChange(EventHub& events)
{
    return changeTo(events, frame(), frame()->plotType, m_plotType, styleEvent({"PlotType"}));
}

UniqueId* AssignVariable::place() const
{
    bool const is2D = frame()->plotType == PlotType_Cartesian2D;
    switch (m_assignment) {
    case 'X':
    case 'Y':
    case 'Z': {
        auto const axis = static_cast<std::size_t>(m_assignment - 'X');
        if (is2D) {
            return axis < frame()->axes2D.size() ? &frame()->axes2D[axis] : nullptr;
        }
        return &frame()->axes3D[axis];
    }
    case 'U':
    case 'V':
    case 'W':
        return &frame()->vector[static_cast<std::size_t>(m_assignment - 'U')];
    case 'C':
        return &frame()->contourVariable;
    default:
        return nullptr;
    }
}

std::string AssignVariable::reasonAgainst() const
{
    if (!frame()->dataSet) {
        return "The frame has no data set.";
    }
    if (place() == nullptr) {
        return "There is no such assignment.";
    }
    return m_variable == 0 || frame()->dataSet->variable(m_variable) ? "" : noVariable;
}

std::shared_ptr<Change> AssignVariable::makeChange(EventHub& events)
{
    UniqueId const assigned = m_variable == 0 ? 0 : frame()->dataSet->variable(m_variable)->id;
    return changeTo(events, frame(), *place(), assigned, styleEvent(assignmentPath(*frame(), m_assignment)));
}

std::shared_ptr<Change> SetPlotOption::makeChange(EventHub& events)
{
    return changeTo(events, frame(), (*frame()).*m_option.member, m_isOn, styleEvent(m_option.path()));
}

CommandText SetPlotType::command() const
{
    char const* const word = m_plotType == PlotType_Cartesian2D   ? "2d"
                             : m_plotType == PlotType_Cartesian3D ? "3d"
                             : m_plotType == PlotType_XYLine      ? "line"
                                                                  : nullptr;
    return word == nullptr ? CommandText() : CommandText("set-plot-type").word("type", word);
}

CommandText AssignVariable::command() const
{
    CommandText text = CommandText("assign-variable").word("to", std::string(1, m_assignment));
    return m_variable == 0 ? text : text.number("variable", m_variable);
}

CommandText SetPlotOption::command() const
{
    return CommandText("set-plot-option")
        .word("option", std::string(m_option.group) + '/' + m_option.value)
        .flag("on", m_isOn);
}

} // namespace veldraw::kernel

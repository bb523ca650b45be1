#include "kernel/operations/SetLineAxis.h"

#include "kernel/undo/SwapChange.h"

namespace veldraw::kernel {

std::string SetLineAxis::reasonAgainst() const
{
    if (static_cast<int>(m_kind) < 0 || static_cast<int>(m_kind) >= lineAxisCount) {
        return "There is no such axis.";
    }
    LinePlotAxes altered;
    altered.at(m_kind) = m_axis;
    return altered.refusal();
}

std::shared_ptr<Change> SetLineAxis::makeChange(EventHub& events)
{
    return changeTo(events, frame(), frame()->lineAxes.at(m_kind), m_axis, styleEvent({"LinePlotAxes"}));
}

CommandText SetLineAxis::command() const
{
    CommandText text("set-line-axis");
    text.word("axis", LinePlotAxes::axisWords()[static_cast<std::size_t>(m_kind)]);
    text.word("range", m_axis.isFixed ? "fixed" : "fit").real("min", m_axis.min).real("max", m_axis.max);
    return text.quoted("title", m_axis.title);
}

std::shared_ptr<Change> SetPlotTitle::makeChange(EventHub& events)
{
    return changeTo(events, frame(), frame()->lineAxes.title, m_title, styleEvent({"LinePlotAxes"}));
}

CommandText SetPlotTitle::command() const
{
    return CommandText("set-plot-title").quoted("title", m_title);
}

} // namespace veldraw::kernel

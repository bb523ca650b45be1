#include "kernel/operations/SetContourColours.h"

#include "kernel/undo/SwapChange.h"

namespace veldraw::kernel {

std::shared_ptr<Change> SetContourColours::makeChange(EventHub& events)
{
    return changeTo(events, frame(), frame()->contourColours, m_colours, styleEvent(m_style));
}

CommandText SetContourColours::command() const
{
    CommandText text("set-contour-colours");
    ContourColours const usual;
    bool const areUsual = m_colours.min == usual.min && m_colours.max == usual.max;
    if (m_colours.isFixed || !areUsual) {
        text.word("range", m_colours.isFixed ? "fixed" : "shown");
        text.real("min", m_colours.min).real("max", m_colours.max);
    }
    if (m_colours.levels > 0) {
        text.number("levels", m_colours.levels);
    }
    return text.word("map", ContourColours::mapWords()[static_cast<std::size_t>(m_colours.map)]);
}

} // namespace veldraw::kernel

#include "kernel/operations/FrameOperation.h"

#include "kernel/frames/Pages.h"
#include "kernel/operations/ReportText.h"

namespace veldraw::kernel {

std::string FrameOperation::find(Pages const& pages)
{
    m_frame = pages.frame(m_id);
    return m_frame ? "" : noFrame;
}

std::string FrameDataOperation::find(Pages const& pages)
{
    bool const hasData = FrameOperation::find(pages).empty() && frame()->dataSet;
    return hasData ? "" : "There is no data set.";
}

std::string FrameDataOperation::reasonAgainstAxis(std::size_t axis) const
{
    return frame()->axisVariables()[axis] == 0 ? std::string("The ") + "XYZ"[axis] + " axis has no variable." : "";
}

std::string FrameDataOperation::reasonAgainstCoordinate(std::size_t axis, int zone) const
{
    int const variable = frame()->axisVariables()[axis];
    Field const& field = *dataSet().field(zone, variable);
    if (field.isPassive() || field.location() == ValueLocation_Nodal) {
        return {};
    }
    return "The coordinate " + quoted(dataSet().variable(variable)->name) + " of zone " +
           quoted(dataSet().zone(zone)->name) + " has its values at the cells.";
}

} // namespace veldraw::kernel

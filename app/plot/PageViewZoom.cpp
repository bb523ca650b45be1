// How the user zooms into a line plot by a box.
#include "app/plot/LineView.h"
#include "app/plot/PageOverlay.h"
#include "app/plot/PageView.h"
#include "kernel/operations/SetLineAxis.h"
#include "platform/vdsdkcommon/AppLock.h"

#include <algorithm>

namespace veldraw::app {

void PageView::dragBox(QPointF const& to)
{
    QRectF const box = QRectF(m_pressPosition, to).normalized();
    if (m_overlay)
        m_overlay->setBox(box.toAlignedRect() & m_slots.at(m_draggedFrame).picture);
}

void PageView::zoomIntoBox(QPointF const& to)
{
    if (m_overlay)
        m_overlay->setBox({});
    auto const* const view = dynamic_cast<LineView const*>(frameView(m_draggedFrame));
    auto const frame = m_session.frame(m_draggedFrame);
    if (!frame || !view || sdk::AppLock::depth() > 0)
        return;
    Slot const& slot = m_slots.at(m_draggedFrame);
    QRectF const picture = slot.picture;
    QPointF const end(std::clamp(to.x(), picture.left(), picture.right()),
                      std::clamp(to.y(), picture.top(), picture.bottom()));
    auto ranges = view->rangesIn(inPicture(slot, m_pressPosition), inPicture(slot, end));
    for (auto& [kind, axis] : ranges)
        axis.title = frame->lineAxes.at(kind).title;
    setAxes(*frame, ranges, "Zoom");
}

// As one step.
void PageView::setAxes(kernel::Frame const& frame, std::map<kernel::LineAxisKind, kernel::LineAxis> const& axes,
                       char const* step)
{
    if (axes.empty())
        return;
    sdk::AppLock const lock(sdk::AppLock::RecordAsUsual);
    m_session.history().beginGroup(step);
    for (auto const& [kind, axis] : axes)
        m_session.perform(kernel::SetLineAxis(frame.id, kind, axis));
    m_session.history().endGroup();
}

// Ranges that were typed or zoomed to give way to all values.
void PageView::freeAxes(kernel::Frame const& frame)
{
    std::map<kernel::LineAxisKind, kernel::LineAxis> axes;
    for (int n = 0; n < kernel::lineAxisCount; ++n) {
        auto const kind = static_cast<kernel::LineAxisKind>(n);
        kernel::LineAxis axis = frame.lineAxes.at(kind);
        if (!axis.isFixed)
            continue;
        axis.isFixed = false;
        axes[kind] = axis;
    }
    bool const isLinePlot = frame.plotType == PlotType_XYLine;
    if (isLinePlot && sdk::AppLock::depth() == 0)
        setAxes(frame, axes, "Fit");
}

} // namespace veldraw::app

// What a page view is asked, and told to do.
#include "app/plot/FrameView.h"
#include "app/plot/PageOverlay.h"
#include "app/plot/PageView.h"

#include <QTimer>

#include <algorithm>

namespace veldraw::app {

FrameView* PageView::shownView(kernel::UniqueId frame) const
{
    auto const slot = m_slots.find(frame);
    return slot == m_slots.end() || slot->second.hidesPicture() ? nullptr : slot->second.view.get();
}

FrameView* PageView::frameView(kernel::UniqueId frame)
{
    if (m_timer->isActive() && m_session.isDrawing())
        bringUpToDate();
    return shownView(frame);
}

QString PageView::message(kernel::UniqueId frame) const
{
    auto const slot = m_slots.find(frame);
    return slot == m_slots.end() ? QString() : slot->second.message.sentence;
}

QString PageView::remark(kernel::UniqueId frame) const
{
    auto const slot = m_slots.find(frame);
    return slot == m_slots.end() ? QString() : slot->second.message.remark;
}

QRect PageView::plotArea(kernel::UniqueId frame) const
{
    auto const slot = m_slots.find(frame);
    return slot == m_slots.end() ? QRect() : slot->second.picture;
}

void PageView::showOpening(QString const& fileName)
{
    m_opening = fileName;
    updateOverlay();
    m_overlay->repaint(); // the event loop may not run for a while
}

bool PageView::isDrawing() const
{
    return std::any_of(m_slots.begin(), m_slots.end(),
                       [](auto const& slot) { return slot.second.view && slot.second.view->isWaiting(); });
}

} // namespace veldraw::app

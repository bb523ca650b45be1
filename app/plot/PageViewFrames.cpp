// How the frames of a page view are placed: laid out, moved and sized by mouse and keys, and shown alone.
#include "app/plot/FieldView.h"
#include "app/plot/PageOnScreen.h"
#include "app/plot/PageOverlay.h"
#include "app/plot/PageView.h"
#include "kernel/operations/RenameFrame.h"
#include "platform/vdsdkcommon/AppLock.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>

namespace veldraw::app {

namespace {

constexpr double catchDistance = 7.0; // logical pixels
constexpr double stepOfKey = 0.1;     // inches

QPointF wayOfKey(int key)
{
    switch (key) {
    case Qt::Key_Left:
        return {-stepOfKey, 0.0};
    case Qt::Key_Right:
        return {stepOfKey, 0.0};
    case Qt::Key_Up:
        return {0.0, -stepOfKey};
    case Qt::Key_Down:
        return {0.0, stepOfKey};
    default:
        return {};
    }
}

} // namespace

PageOnScreen PageView::pageOnScreen(kernel::Page const& page) const
{
    return m_sheet ? PageOnScreen(page, sheetRect(), 0) : PageOnScreen(page, rect());
}

void PageView::layOut()
{
    auto const page = m_session.activePage();
    if (!page)
        return;
    PageOnScreen const screen = pageOnScreen(*page);
    bool const isAlone = m_sheet ? m_sheet->activeFrameOnly : m_isMaximized;
    for (auto const& frame : page->frames) {
        Slot& slot = m_slots[frame->id];
        slot.area = screen.frameOf(frame->rectangle);
        if (isAlone)
            slot.area = frame->id == page->activeFrame ? sheetRect() : QRect();
        slot.content = m_sheet || slot.area.isNull() ? slot.area : PageOnScreen::contentOf(slot.area);
        placePicture(slot);
    }
}

void PageView::maximizeFrame(bool isOn)
{
    if (isOn == m_isMaximized)
        return;
    m_isMaximized = isOn;
    dropGrip();
    scheduleRefresh();
    Q_EMIT maximized(isOn);
}

bool PageView::isOnButton(kernel::UniqueId frame, QPoint const& at) const
{
    auto const slot = m_slots.find(frame);
    return slot != m_slots.end() && PageOverlay::buttonOf(slot->second.area).contains(at);
}

// @return whether the mouse has taken the frame, and not its plot
bool PageView::grip(QMouseEvent const& event)
{
    m_grip = {};
    if (event.button() != Qt::LeftButton)
        return false;
    m_grip = gripAt(m_slots.at(m_draggedFrame).area, event.pos());
    if (m_isMaximized)
        m_grip.edges = {};
    if (auto const frame = m_session.frame(m_draggedFrame))
        m_placeOfDrag = frame->rectangle;
    return !m_grip.isNothing();
}

void PageView::showGrip(QPoint const& at)
{
    auto const frame = m_isMaximized ? nullptr : frameAt(at);
    bool const isPlain = !frame || isOnButton(frame->id, at);
    setCursor(isPlain ? Qt::ArrowCursor : gripAt(m_slots.at(frame->id).area, at).cursor());
}

// The edges of the paper and of the other frames.
CatchingLines PageView::linesBeside(kernel::UniqueId frame) const
{
    auto const page = m_session.activePage();
    CatchingLines lines{{0.0, page->paperWidth}, {0.0, page->paperHeight}, {}};
    for (auto const& other : page->frames) {
        if (other->id == frame)
            continue;
        kernel::Rectangle const& place = other->rectangle;
        lines.x.insert(lines.x.end(), {place.x, place.x + place.width});
        lines.y.insert(lines.y.end(), {place.y, place.y + place.height});
    }
    lines.reach = pageOnScreen(*page).onPaper(QPointF(catchDistance, catchDistance));
    return lines;
}

// Only an outline goes with the mouse: to draw large plots anew for each of its steps would make them lag behind.
void PageView::dragFrame(QPointF const& to, Qt::KeyboardModifiers modifiers)
{
    auto const page = m_session.activePage();
    auto const frame = m_session.frame(m_draggedFrame);
    if (m_isMaximized || !page || !frame)
        return;
    PageOnScreen const screen = pageOnScreen(*page);
    m_placeOfDrag = dragged(frame->rectangle, m_grip, screen.onPaper(to - m_pressPosition));
    if (!modifiers.testFlag(Qt::AltModifier))
        m_placeOfDrag = caught(m_placeOfDrag, m_grip, linesBeside(frame->id));
    m_overlay->setBox(screen.frameOf(m_placeOfDrag));
}

void PageView::endGrip(QPoint const& at)
{
    auto const frame = m_session.frame(m_draggedFrame);
    bool const isDragged = m_isDragging && !m_isMaximized;
    bool const isClick =
        !m_isDragging && isOnButton(m_draggedFrame, at) && isOnButton(m_draggedFrame, m_pressPosition.toPoint());
    dropGrip();
    if (frame && isDragged)
        placeFrame(*frame, m_placeOfDrag);
    if (isClick)
        maximizeFrame(!m_isMaximized);
}

void PageView::dropGrip()
{
    m_grip = {};
    m_overlay->setBox({});
}

void PageView::placeFrame(kernel::Frame const& frame, kernel::Rectangle const& place)
{
    if (frame.rectangle == place || sdk::AppLock::depth() > 0)
        return;
    sdk::AppLock const lock(sdk::AppLock::RecordAsUsual);
    m_session.perform(kernel::MoveFrame(frame.id, place));
}

bool PageView::placeFrameByKey(QKeyEvent const& event)
{
    auto const frame = m_session.activeFrame();
    QPointF const way = wayOfKey(event.key());
    Qt::KeyboardModifiers const modifiers = event.modifiers() & ~Qt::KeypadModifier;
    bool const moves = modifiers == (Qt::AltModifier | Qt::ShiftModifier);
    bool const sizes = modifiers == (Qt::ControlModifier | Qt::ShiftModifier);
    if (way.isNull() || (!moves && !sizes))
        return false;
    if (frame && !m_isMaximized)
        placeFrame(*frame,
                   dragged(frame->rectangle,
                           moves ? FrameGrip{true, {}} : FrameGrip{false, Qt::RightEdge | Qt::BottomEdge}, way));
    return true;
}

// The mouse has a menu when its button goes up, since a drag of that button zooms.
void PageView::contextMenuEvent(QContextMenuEvent* event)
{
    event->accept();
    auto const frame = m_session.activeFrame();
    auto const slot = frame ? m_slots.find(frame->id) : m_slots.end();
    if (event->reason() != QContextMenuEvent::Mouse)
        Q_EMIT menuWanted(mapToGlobal(slot == m_slots.end() ? rect().center() : slot->second.content.center()), 0);
}

void PageView::askForMenu(QPoint const& at)
{
    auto const frame = frameAt(at);
    auto const* const view = frame ? dynamic_cast<FieldView*>(frameView(frame->id)) : nullptr;
    Q_EMIT menuWanted(mapToGlobal(at), view ? view->zoneAt(inPicture(m_slots.at(frame->id), at)) : 0);
}

} // namespace veldraw::app

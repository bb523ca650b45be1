// What the user does with mouse and keys in a page view.
#include "app/plot/FieldView.h"
#include "app/plot/LineView.h"
#include "app/plot/PageView.h"
#include "kernel/frames/Display.h"
#include "platform/vdsdkcommon/AppLock.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QTimer>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace veldraw::app {

namespace {

constexpr double dragDistance = 4.0; // logical pixels; a shorter way is a click

} // namespace

std::shared_ptr<kernel::Frame> PageView::frameAt(QPoint const& position) const
{
    auto const page = m_session.activePage();
    if (!page)
        return nullptr;
    for (auto frame = page->frames.rbegin(); frame != page->frames.rend(); ++frame) {
        auto const slot = m_slots.find((*frame)->id);
        if (slot != m_slots.end() && slot->second.area.contains(position))
            return *frame;
    }
    return nullptr;
}

QPointF PageView::inPicture(Slot const& slot, QPointF const& position) const
{
    QRectF const picture = slot.picture;
    return {(position.x() - picture.left()) / std::max(1.0, picture.width()),
            (picture.bottom() - position.y()) / std::max(1.0, picture.height())};
}

void PageView::mousePressEvent(QMouseEvent* event)
{
    if (m_timer->isActive() && m_session.isDrawing())
        bringUpToDate();
    auto const frame = frameAt(event->pos());
    if (!frame)
        return QWidget::mousePressEvent(event);
    auto const page = m_session.activePage();
    if (page->activeFrame != frame->id)
        m_session.activateFrame(frame->id);
    m_draggedFrame = frame->id;
    m_dragButton = event->button();
    m_isDragging = false;
    m_isBox = !grip(*event) && event->button() == Qt::LeftButton && event->modifiers().testFlag(Qt::ShiftModifier) &&
              dynamic_cast<LineView const*>(frameView(frame->id));
    m_pressPosition = event->localPos();
    m_dragPosition = event->localPos();
    event->accept();
}

void PageView::mouseMoveEvent(QMouseEvent* event)
{
    dropTipBeside(event->pos());
    if (m_dragButton == Qt::NoButton)
        showGrip(event->pos());
    FrameView* const view = m_dragButton == Qt::NoButton ? nullptr : frameView(m_draggedFrame);
    if (!view && m_grip.isNothing())
        return QWidget::mouseMoveEvent(event);
    bool const wasDragging = m_isDragging;
    m_isDragging = m_isDragging || (event->localPos() - m_pressPosition).manhattanLength() >= dragDistance;
    if (!m_isDragging)
        return;
    if (!m_grip.isNothing())
        return dragFrame(event->localPos(), event->modifiers());
    if (m_isBox)
        return dragBox(event->localPos());
    Slot const& slot = m_slots.at(m_draggedFrame);
    if (!wasDragging)
        beginDrag(*view, inPicture(slot, m_pressPosition), event->modifiers());
    dragInView(*view, inPicture(slot, m_dragPosition), inPicture(slot, event->localPos()), event->modifiers());
    m_dragPosition = event->localPos();
    followView(m_draggedFrame);
    event->accept();
}

void PageView::beginDrag(FrameView& view, QPointF const& from, Qt::KeyboardModifiers modifiers)
{
    keepView(m_draggedFrame, Gesture::Drag);
    bool const isAround = m_dragButton == Qt::LeftButton && modifiers.testFlag(Qt::ControlModifier);
    view.rotateAround(isAround ? std::optional<QPointF>(from) : std::nullopt);
}

void PageView::dragInView(FrameView& view, QPointF const& from, QPointF const& to, Qt::KeyboardModifiers modifiers)
{
    auto const mode = static_cast<kernel::MouseMode>(m_session.mouseMode());
    bool const isLeft = m_dragButton == Qt::LeftButton;
    if (m_dragButton == Qt::RightButton || (isLeft && mode == kernel::MouseMode::Zoom))
        view.zoom(std::exp(2.5 * (to.y() - from.y())), QPointF(0.5, 0.5));
    else if (isLeft && mode != kernel::MouseMode::Pan && !modifiers.testFlag(Qt::ShiftModifier))
        view.rotate(from, to);
    else
        view.pan(from, to);
}

void PageView::mouseReleaseEvent(QMouseEvent* event)
{
    if (!m_grip.isNothing())
        endGrip(event->pos());
    else if (m_dragButton == Qt::LeftButton && event->button() == Qt::LeftButton && !m_isDragging) {
        bool const isAdding = event->modifiers().testFlag(Qt::ControlModifier);
        if (!isAdding && (m_probesByClick || event->modifiers().testFlag(Qt::ShiftModifier)))
            probeAt(event->pos());
        else
            pickAt(event->pos(), isAdding);
    }
    if (m_isBox && m_isDragging)
        zoomIntoBox(event->localPos());
    bool const asksForMenu = event->button() == Qt::RightButton && !m_isDragging;
    m_isBox = false;
    m_isDragging = false;
    m_dragButton = Qt::NoButton;
    m_draggedFrame = 0;
    event->accept();
    if (asksForMenu)
        askForMenu(event->pos());
}

void PageView::pickAt(QPoint const& position, bool isAdding)
{
    auto const frame = m_session.frame(m_draggedFrame);
    auto const* const view = dynamic_cast<FieldView*>(frameView(m_draggedFrame));
    if (!frame || !frame->dataSet || !view || sdk::AppLock::depth() > 0)
        return;
    sdk::AppLock const lock(sdk::AppLock::RecordAsUsual);
    auto const zone = frame->dataSet->zone(view->zoneAt(inPicture(m_slots.at(m_draggedFrame), position)));
    std::vector<kernel::Pick> picks;
    if (isAdding)
        picks = m_session.picks();
    auto const old = std::find_if(picks.begin(), picks.end(),
                                  [&](kernel::Pick const& pick) { return zone && pick.zone == zone->id; });
    if (old != picks.end())
        picks.erase(old);
    else if (zone)
        picks.push_back({kernel::Pick::zoneType, zone->id});
    if (!picks.empty() || !m_session.picks().empty())
        m_session.setPicks(std::move(picks));
}

void PageView::mouseDoubleClickEvent(QMouseEvent* event)
{
    auto const frame = event->button() == Qt::LeftButton ? frameAt(event->pos()) : nullptr;
    FrameGrip const part = frame ? gripAt(m_slots.at(frame->id).area, event->pos()) : FrameGrip();
    if (part.isHeader && !isOnButton(frame->id, event->pos()))
        maximizeFrame(!m_isMaximized);
    else if (frame && part.isNothing())
        fitActiveFrame();
    event->accept();
}

void PageView::wheelEvent(QWheelEvent* event)
{
    auto const frame = frameAt(event->position().toPoint());
    FrameView* const view = frame ? frameView(frame->id) : nullptr;
    if (!view || event->angleDelta().y() == 0)
        return event->ignore();
    keepView(frame->id, Gesture::Wheel);
    view->zoom(std::pow(1.15, event->angleDelta().y() / 120.0), inPicture(m_slots.at(frame->id), event->position()));
    followView(frame->id);
    event->accept();
}

bool PageView::event(QEvent* event)
{
    if (event->type() == QEvent::ScreenChangeInternal || event->type() == QEvent::LanguageChange)
        markAll();
    bool const endsRest = event->type() == QEvent::MouseButtonPress || event->type() == QEvent::Wheel ||
                          event->type() == QEvent::KeyPress || event->type() == QEvent::Leave;
    if (endsRest)
        dropTip();
    if (event->type() == QEvent::ToolTip) {
        showTip(*static_cast<QHelpEvent*>(event));
        return true;
    }
    return QWidget::event(event);
}

void PageView::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && !m_grip.isNothing()) {
        m_dragButton = Qt::NoButton;
        return dropGrip();
    }
    if (placeFrameByKey(*event))
        return;
    auto const frame = m_session.activeFrame();
    FrameView* const view = frame ? frameView(frame->id) : nullptr;
    if (view && movesByKey(event->key())) {
        keepView(frame->id, Gesture::Key);
        moveByKey(*view, event->key());
        return followView(frame->id);
    }
    QWidget::keyPressEvent(event);
}

bool PageView::movesByKey(int key)
{
    constexpr int keys[] = {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up,    Qt::Key_Down,
                            Qt::Key_Plus, Qt::Key_Equal, Qt::Key_Minus, Qt::Key_Home};
    return std::find(std::begin(keys), std::end(keys), key) != std::end(keys);
}

void PageView::moveByKey(FrameView& view, int key)
{
    constexpr double step = 0.05;
    QPointF const centre(0.5, 0.5);
    view.rotateAround(std::nullopt);
    switch (key) {
    case Qt::Key_Left:
        view.rotate(centre, centre - QPointF(step, 0.0));
        return;
    case Qt::Key_Right:
        view.rotate(centre, centre + QPointF(step, 0.0));
        return;
    case Qt::Key_Up:
        view.rotate(centre, centre + QPointF(0.0, step));
        return;
    case Qt::Key_Down:
        view.rotate(centre, centre - QPointF(0.0, step));
        return;
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        view.zoom(1.25, centre);
        return;
    case Qt::Key_Minus:
        view.zoom(0.8, centre);
        return;
    case Qt::Key_Home:
        view.fit();
        return;
    default:
        return;
    }
}

} // namespace veldraw::app

#include "dialogs/spreadsheet/LongTableMouseSelector.h"

#include "dialogs/spreadsheet/TableCells.h"
#include "dialogs/spreadsheet/TableWindow.h"
#include "dialogs/widgets/TableViewWithPreferredDimensions.h"

#include <QHeaderView>
#include <QMouseEvent>
#include <QTimerEvent>

#include <algorithm>
#include <cstdlib>

namespace veldraw::sdk::ui::propertymanager {

namespace {

constexpr int scrollInterval = 50; // milliseconds
constexpr int pixelsPerStep = 12;  // the farther away the mouse is, the faster goes the scrolling

// Number of rows or columns to scroll by, from how far the mouse is outside the viewport; 0 while it is inside.
long long stepsTowards(int place, int end)
{
    int const beyond = place < 0 ? place : std::max(place - end + 1, 0);
    return beyond / pixelsPerStep + (beyond > 0) - (beyond < 0);
}

void scroll(TableWindow& window, Qt::Orientation direction, long long steps)
{
    unsigned long long const position = window.position(direction);
    auto const count = static_cast<unsigned long long>(std::abs(steps));
    if (steps != 0)
        window.scrollTo(direction, steps > 0 ? position + count : position - std::min(position, count));
}

} // namespace

LongTableMouseSelector::LongTableMouseSelector(TableWindow& window, View& view)
    : QObject(&view)
    , m_window(window)
    , m_view(view)
{
    view.viewport()->installEventFilter(this);
    view.verticalHeader()->viewport()->installEventFilter(this);
    view.horizontalHeader()->viewport()->installEventFilter(this);
}

LongTableMouseSelector::~LongTableMouseSelector() = default;

bool LongTableMouseSelector::eventFilter(QObject* watched, QEvent* event)
{
    bool const isMouse = event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseMove ||
                         event->type() == QEvent::MouseButtonRelease;
    if (!isMouse || (m_window.showsAll(Qt::Vertical) && m_window.showsAll(Qt::Horizontal)))
        return false;
    auto const& mouse = *static_cast<QMouseEvent const*>(event);
    if (watched == m_view.viewport())
        return cellsEvent(mouse);
    if (event->type() != QEvent::MouseButtonPress)
        return false;
    return watched == m_view.verticalHeader()->viewport()
               ? pressOnHeader(Qt::Vertical, *m_view.verticalHeader(), mouse)
               : pressOnHeader(Qt::Horizontal, *m_view.horizontalHeader(), mouse);
}

// True for an event that is handled here and must not reach the view.
bool LongTableMouseSelector::cellsEvent(QMouseEvent const& mouse)
{
    if (mouse.type() == QEvent::MouseButtonPress)
        return pressOnCell(mouse);
    if (mouse.type() == QEvent::MouseButtonRelease || !(mouse.buttons() & Qt::LeftButton)) {
        endDrag();
        return false;
    }
    if (!m_isDragging)
        return false;
    m_mouse = mouse.pos();
    extendToMouse();
    if (m_view.viewport()->rect().contains(m_mouse))
        m_scrollTimer.stop();
    else if (!m_scrollTimer.isActive())
        m_scrollTimer.start(scrollInterval, this);
    return true;
}

bool LongTableMouseSelector::pressOnCell(QMouseEvent const& mouse)
{
    endDrag();
    QModelIndex const index = m_view.indexAt(mouse.pos());
    if (mouse.button() != Qt::LeftButton || !index.isValid())
        return false;
    TableCells::Cell const cell = TableCells(m_view).cell(index);
    bool const extends = mouse.modifiers() == Qt::ShiftModifier;
    m_isDragging = extends || mouse.modifiers() == Qt::NoModifier;
    if (extends)
        m_window.setCurrent(cell, true);
    else
        m_window.beginAt(cell, mouse.modifiers() & Qt::ControlModifier);
    return extends;
}

bool LongTableMouseSelector::pressOnHeader(Qt::Orientation direction, QHeaderView const& header,
                                           QMouseEvent const& mouse)
{
    int const section = header.logicalIndexAt(mouse.pos());
    if (m_window.showsAll(direction) || mouse.button() != Qt::LeftButton || section < 0)
        return false;
    bool const isRow = direction == Qt::Vertical;
    TableCells::Cell const cell =
        TableCells(m_view).cell(m_view.model()->index(isRow ? section : 0, isRow ? 0 : section));
    bool const extends = mouse.modifiers() == Qt::ShiftModifier;
    if (extends)
        m_window.extendLines(direction, isRow ? cell.row : cell.column);
    else
        m_window.beginAt(cell, mouse.modifiers() & Qt::ControlModifier);
    return extends;
}

void LongTableMouseSelector::endDrag()
{
    m_isDragging = false;
    m_scrollTimer.stop();
}

void LongTableMouseSelector::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != m_scrollTimer.timerId())
        return;
    scroll(m_window, Qt::Vertical, stepsTowards(m_mouse.y(), m_view.viewport()->height()));
    scroll(m_window, Qt::Horizontal, stepsTowards(m_mouse.x(), m_view.viewport()->width()));
    extendToMouse();
}

// Extends the selection to the cell under the mouse, or to the nearest one.
void LongTableMouseSelector::extendToMouse()
{
    QRect const cells = m_view.viewport()->rect();
    int const row = m_view.rowAt(std::max(0, std::min(m_mouse.y(), cells.bottom())));
    int const column = m_view.columnAt(std::max(0, std::min(m_mouse.x(), cells.right())));
    QAbstractItemModel const& items = *m_view.model();
    QModelIndex const index =
        items.index(row < 0 ? items.rowCount() - 1 : row, column < 0 ? items.columnCount() - 1 : column);
    if (index.isValid() && index != m_view.currentIndex())
        m_window.setCurrent(TableCells(m_view).cell(index), true);
}

} // namespace veldraw::sdk::ui::propertymanager

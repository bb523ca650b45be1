#include "dialogs/spreadsheet/LongTableKeyNavigator.h"

#include "dialogs/spreadsheet/TableWindow.h"

#include <QKeyEvent>

#include <algorithm>

namespace veldraw::sdk::ui::propertymanager {

LongTableKeyNavigator::LongTableKeyNavigator(TableWindow& window, QObject& view)
    : QObject(&view)
    , m_window(window)
{
    view.installEventFilter(this);
}

LongTableKeyNavigator::~LongTableKeyNavigator() = default;

bool LongTableKeyNavigator::eventFilter(QObject* watched, QEvent* event)
{
    bool const isLong = !m_window.showsAll(Qt::Vertical) || !m_window.showsAll(Qt::Horizontal);
    if (event->type() != QEvent::KeyPress || !isLong)
        return QObject::eventFilter(watched, event);
    auto const& key = *static_cast<QKeyEvent*>(event);
    std::optional<Cell> const cell = target(key);
    if (!cell)
        return QObject::eventFilter(watched, event);
    bool const isTab = key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab;
    m_window.setCurrent(*cell, !isTab && (key.modifiers() & Qt::ShiftModifier));
    return true;
}

std::optional<LongTableKeyNavigator::Cell> LongTableKeyNavigator::target(QKeyEvent const& key) const
{
    unsigned long long const rows = m_window.total(Qt::Vertical);
    if (rows == 0 || m_window.total(Qt::Horizontal) == 0 || (key.modifiers() & (Qt::AltModifier | Qt::MetaModifier)))
        return std::nullopt;
    Cell const cell =
        m_window.current().value_or(Cell(m_window.position(Qt::Vertical), m_window.position(Qt::Horizontal)));
    auto const page = static_cast<unsigned long long>(m_window.pageSize(Qt::Vertical));
    unsigned long long const lastRow = rows - 1;
    bool const toTheEnd = key.modifiers() & Qt::ControlModifier;
    switch (key.key()) {
    case Qt::Key_Up:
        return Cell(toTheEnd ? 0 : subtractSaturating(cell.row, 1), cell.column);
    case Qt::Key_Down:
        return Cell(toTheEnd ? lastRow : std::min(cell.row + 1, lastRow), cell.column);
    case Qt::Key_PageUp:
        return Cell(subtractSaturating(cell.row, page), cell.column);
    case Qt::Key_PageDown:
        return Cell(std::min(cell.row + page, lastRow), cell.column);
    default:
        return targetInRow(key, cell);
    }
}

std::optional<LongTableKeyNavigator::Cell> LongTableKeyNavigator::targetInRow(QKeyEvent const& key,
                                                                              Cell const& cell) const
{
    unsigned long long const lastColumn = m_window.total(Qt::Horizontal) - 1;
    bool const toTheEnd = key.modifiers() & Qt::ControlModifier;
    switch (key.key()) {
    case Qt::Key_Left:
        return Cell(cell.row, toTheEnd ? 0 : subtractSaturating(cell.column, 1));
    case Qt::Key_Right:
        return Cell(cell.row, toTheEnd ? lastColumn : std::min(cell.column + 1, lastColumn));
    case Qt::Key_Home:
        return Cell(toTheEnd ? 0 : cell.row, 0);
    case Qt::Key_End:
        return Cell(toTheEnd ? m_window.total(Qt::Vertical) - 1 : cell.row, lastColumn);
    case Qt::Key_Tab:
        return toTheEnd ? std::optional<Cell>() : nextInReading(cell);
    case Qt::Key_Backtab:
        return toTheEnd ? std::optional<Cell>() : previousInReading(cell);
    default:
        return std::nullopt;
    }
}

// Along the rows, from the last cell to the first.
LongTableKeyNavigator::Cell LongTableKeyNavigator::nextInReading(Cell const& cell) const
{
    if (cell.column + 1 < m_window.total(Qt::Horizontal))
        return Cell(cell.row, cell.column + 1);
    return cell.row + 1 < m_window.total(Qt::Vertical) ? Cell(cell.row + 1, 0) : Cell(0, 0);
}

LongTableKeyNavigator::Cell LongTableKeyNavigator::previousInReading(Cell const& cell) const
{
    if (cell.column > 0)
        return Cell(cell.row, cell.column - 1);
    return Cell((cell.row > 0 ? cell.row : m_window.total(Qt::Vertical)) - 1, m_window.total(Qt::Horizontal) - 1);
}

} // namespace veldraw::sdk::ui::propertymanager

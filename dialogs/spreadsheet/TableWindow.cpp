#include "dialogs/spreadsheet/TableWindow.h"

#include "dialogs/widgets/TableViewWithPreferredDimensions.h"

#include <QApplication>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTimer>

#include <algorithm>

namespace veldraw::sdk::ui::propertymanager {

namespace {

// The window moves on when the view comes this number of pages near its end, so that nobody scrolls into the end.
constexpr int pagesOfRoom = 64;

unsigned long long wide(int count)
{
    return static_cast<unsigned long long>(count);
}

// Turns a range that covers the whole window into one that covers the whole table.
void widen(unsigned long long& first, unsigned long long& last, int windowSize, unsigned long long total)
{
    if (last - first + 1 != wide(windowSize))
        return;
    first = 0;
    last = subtractSaturating(total, 1);
}

} // namespace

TableWindow::TableWindow(View& view, Adapter& adapter)
    : QObject(&view)
    , m_view(view)
    , m_adapter(adapter)
{
    connect(view.selectionModel(), &QItemSelectionModel::currentChanged, this, &TableWindow::onCurrentChanged);
    connect(view.selectionModel(), &QItemSelectionModel::selectionChanged, this, &TableWindow::onSelectionChanged);
    connect(&adapter, &Adapter::windowChanged, this, &TableWindow::onWindowChanged);
    for (QScrollBar* const bar : {view.verticalScrollBar(), view.horizontalScrollBar()}) {
        connect(bar, &QScrollBar::valueChanged, this, &TableWindow::onScrolled);
        connect(bar, &QScrollBar::rangeChanged, this, &TableWindow::onScrolled);
    }
}

TableWindow::~TableWindow() = default;

TableWindow* TableWindow::of(QObject const& view)
{
    return view.findChild<TableWindow*>(QString(), Qt::FindDirectChildrenOnly);
}

unsigned long long TableWindow::total(Qt::Orientation direction) const
{
    return direction == Qt::Vertical ? m_adapter.totalRows() : m_adapter.totalColumns();
}

bool TableWindow::showsAll(Qt::Orientation direction) const
{
    return direction == Qt::Vertical ? m_adapter.showsAllRows() : m_adapter.showsAllColumns();
}

unsigned long long TableWindow::position(Qt::Orientation direction) const
{
    return first(direction) + wide(scrollBar(direction).value());
}

int TableWindow::pageSize(Qt::Orientation direction) const
{
    return std::max(scrollBar(direction).pageStep(), 1);
}

unsigned long long TableWindow::lastPosition(Qt::Orientation direction) const
{
    return subtractSaturating(total(direction), wide(pageSize(direction)));
}

void TableWindow::scrollTo(Qt::Orientation direction, unsigned long long position)
{
    unsigned long long const target = std::min(position, lastPosition(direction));
    unsigned long long const begin = first(direction);
    if (target < begin || target + wide(pageSize(direction)) > begin + wide(windowSize(direction)))
        moveWindowAround(direction, target);
    // Longer row names at the new position take room, so that fewer rows may fit: the last position is asked for again.
    unsigned long long const reached = std::min(position, lastPosition(direction));
    scrollBar(direction).setValue(static_cast<int>(reached - first(direction)));
}

void TableWindow::setCurrent(Cell const& cell, bool extend)
{
    m_view.finishEdit();
    if (!isInTable(cell))
        return;
    Cell const from = extend && m_anchor ? *m_anchor : cell;
    select(from, cell, CellRange::between(from, cell));
}

void TableWindow::extendLines(Qt::Orientation direction, unsigned long long place)
{
    m_view.finishEdit();
    bool const isRow = direction == Qt::Vertical;
    Cell const cell = isRow ? Cell(place, position(Qt::Horizontal)) : Cell(position(Qt::Vertical), place);
    if (!isInTable(cell))
        return;
    Cell const from = m_anchor.value_or(cell);
    CellRange lines{Cell(0, 0), Cell(m_adapter.totalRows() - 1, m_adapter.totalColumns() - 1)};
    if (isRow) {
        lines.first.row = std::min(from.row, place);
        lines.last.row = std::max(from.row, place);
    } else {
        lines.first.column = std::min(from.column, place);
        lines.last.column = std::max(from.column, place);
    }
    select(from, cell, lines);
}

void TableWindow::beginAt(Cell const& cell, bool adds)
{
    m_anchor = cell;
    // The view signals no change when the selected cells in the window stay the same.
    if (!adds)
        m_selection = rangesInView();
}

bool TableWindow::isInTable(Cell const& cell) const
{
    return cell.row < m_adapter.totalRows() && cell.column < m_adapter.totalColumns();
}

void TableWindow::select(Cell const& anchor, Cell const& current, CellRange const& range)
{
    ensureInWindow(Qt::Vertical, current.row);
    ensureInWindow(Qt::Horizontal, current.column);
    m_anchor = anchor;
    m_current = current;
    m_selection = {range};
    QScopedValueRollback<bool> const moving(m_isMoving, true);
    showSelection();
    showCurrent();
    m_view.scrollTo(m_view.currentIndex());
    Q_EMIT positionChanged();
}

void TableWindow::onCurrentChanged(QModelIndex const& index)
{
    if (m_isMoving)
        return;
    m_current.reset();
    if (index.isValid())
        m_current = m_adapter.tableIndex(index);
    if (!(QApplication::keyboardModifiers() & Qt::ShiftModifier))
        m_anchor = m_current;
}

void TableWindow::onSelectionChanged()
{
    if (m_isMoving)
        return;
    Ranges selected = rangesInView();
    // A click with Control keeps the selected cells outside the window.
    if (QApplication::keyboardModifiers() & Qt::ControlModifier)
        addElsewhere(selected);
    m_selection = selected;
}

void TableWindow::addElsewhere(Ranges& selected) const
{
    Ranges const seen = selected;
    for (CellRange const& range : m_selection) {
        bool const isSeen = std::any_of(seen.begin(), seen.end(),
                                        [&range](CellRange const& other) { return !range.inside(other).empty(); });
        // A range over the whole table of which the window has no selected cell left was deselected as a whole.
        if (isSeen || !reachesOverAll(range)) {
            Ranges const elsewhere = range.outside(window());
            selected.insert(selected.end(), elsewhere.begin(), elsewhere.end());
        }
    }
}

// Whether the range covers the whole table in a direction in which the window shows a part of it.
bool TableWindow::reachesOverAll(CellRange const& range) const
{
    bool const hasAllRows = range.last.row - range.first.row + 1 == m_adapter.totalRows();
    bool const hasAllColumns = range.last.column - range.first.column + 1 == m_adapter.totalColumns();
    return (hasAllRows && !showsAll(Qt::Vertical)) || (hasAllColumns && !showsAll(Qt::Horizontal));
}

void TableWindow::onWindowChanged()
{
    if (m_isMoving)
        return;
    if (!m_view.currentIndex().isValid()) {
        m_current.reset();
        m_anchor.reset();
    }
    m_selection = rangesInView();
    m_view.layOutNow();
    Q_EMIT positionChanged();
}

void TableWindow::onScrolled()
{
    if (m_isMoving)
        return;
    Q_EMIT positionChanged();
    if (m_willMakeRoom)
        return;
    // The window moves at the next turn of the event loop: the view may be in the middle of scrolling now.
    m_willMakeRoom = true;
    QTimer::singleShot(0, this, [this] {
        m_willMakeRoom = false;
        makeRoom(Qt::Vertical);
        makeRoom(Qt::Horizontal);
    });
}

void TableWindow::makeRoom(Qt::Orientation direction)
{
    if (showsAll(direction))
        return;
    int const room = std::min(pagesOfRoom * pageSize(direction), windowSize(direction) / 4);
    QScrollBar const& bar = scrollBar(direction);
    bool const nearStart = bar.value() < room && first(direction) > 0;
    bool const nearEnd = bar.value() > bar.maximum() - room && first(direction) < lastFirst(direction);
    if (nearStart || nearEnd)
        moveWindowAround(direction, position(direction));
}

void TableWindow::moveWindow(Qt::Orientation direction, unsigned long long newFirst)
{
    // The view drops the editor of a cell that leaves the window. Its text is stored first, as when the editor loses the focus.
    if (m_current && wouldLose(*m_current, direction, newFirst))
        m_view.finishEdit();
    unsigned long long const shown = position(direction);
    QScopedValueRollback<bool> const moving(m_isMoving, true);
    if (direction == Qt::Vertical)
        m_adapter.setFirstRow(newFirst);
    else
        m_adapter.setFirstColumn(newFirst);
    m_view.layOutNow();
    showSelection();
    showCurrent();
    int const place = inWindow(direction, shown);
    if (place >= 0)
        scrollBar(direction).setValue(place);
}

bool TableWindow::wouldLose(Cell const& cell, Qt::Orientation direction, unsigned long long newFirst) const
{
    unsigned long long const place = direction == Qt::Vertical ? cell.row : cell.column;
    unsigned long long const begin = std::min(newFirst, lastFirst(direction));
    return place < begin || place - begin >= wide(windowSize(direction));
}

void TableWindow::moveWindowAround(Qt::Orientation direction, unsigned long long center)
{
    moveWindow(direction, subtractSaturating(center, wide(windowSize(direction) / 2)));
}

void TableWindow::ensureInWindow(Qt::Orientation direction, unsigned long long place)
{
    if (inWindow(direction, place) < 0)
        moveWindowAround(direction, place);
}

// Selects in the view the part of the selection that lies in the window.
void TableWindow::showSelection()
{
    QItemSelection shown;
    for (CellRange const& range : m_selection) {
        for (CellRange const& part : range.inside(window()))
            shown.select(
                m_adapter.index(m_adapter.windowRow(part.first.row), m_adapter.windowColumn(part.first.column)),
                m_adapter.index(m_adapter.windowRow(part.last.row), m_adapter.windowColumn(part.last.column)));
    }
    m_view.selectionModel()->select(shown, QItemSelectionModel::ClearAndSelect);
}

void TableWindow::showCurrent()
{
    QModelIndex shown;
    if (m_current)
        shown = m_adapter.index(m_adapter.windowRow(m_current->row), m_adapter.windowColumn(m_current->column));
    if (shown.isValid())
        m_view.selectionModel()->setCurrentIndex(shown, QItemSelectionModel::NoUpdate);
    else
        m_view.selectionModel()->clearCurrentIndex();
}

TableWindow::Ranges TableWindow::rangesInView() const
{
    Ranges ranges;
    for (QItemSelectionRange const& selected : m_view.selectionModel()->selection()) {
        CellRange range{m_adapter.tableIndex(selected.topLeft()), m_adapter.tableIndex(selected.bottomRight())};
        widen(range.first.row, range.last.row, m_adapter.rowCount(), m_adapter.totalRows());
        widen(range.first.column, range.last.column, m_adapter.columnCount(), m_adapter.totalColumns());
        ranges.push_back(range);
    }
    return ranges;
}

CellRange TableWindow::window() const
{
    return CellRange{Cell(m_adapter.firstRow(), m_adapter.firstColumn()),
                     Cell(m_adapter.firstRow() + subtractSaturating(wide(m_adapter.rowCount()), 1),
                          m_adapter.firstColumn() + subtractSaturating(wide(m_adapter.columnCount()), 1))};
}

QScrollBar& TableWindow::scrollBar(Qt::Orientation direction) const
{
    return direction == Qt::Vertical ? *m_view.verticalScrollBar() : *m_view.horizontalScrollBar();
}

unsigned long long TableWindow::first(Qt::Orientation direction) const
{
    return direction == Qt::Vertical ? m_adapter.firstRow() : m_adapter.firstColumn();
}

unsigned long long TableWindow::lastFirst(Qt::Orientation direction) const
{
    return direction == Qt::Vertical ? m_adapter.lastFirstRow() : m_adapter.lastFirstColumn();
}

int TableWindow::windowSize(Qt::Orientation direction) const
{
    return direction == Qt::Vertical ? m_adapter.rowCount() : m_adapter.columnCount();
}

int TableWindow::inWindow(Qt::Orientation direction, unsigned long long place) const
{
    return direction == Qt::Vertical ? m_adapter.windowRow(place) : m_adapter.windowColumn(place);
}

} // namespace veldraw::sdk::ui::propertymanager

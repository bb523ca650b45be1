#include "app/window/DockTableView.h"

#include "app/window/SnapshotTableModel.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>

#include <algorithm>

namespace veldraw::app {

namespace {

constexpr int widthInCharacters = 56;  // of the whole list, as it would like to be
constexpr int readableCharacters = 22; // of a name, which no other column takes from it

} // namespace

DockTableView::DockTableView(SnapshotTableModel& tableModel, QString const& name, QString const& accessibleText,
                             QWidget* parent)
    : QTreeView(parent)
    , m_table(tableModel)
{
    setObjectName(name);
    setAccessibleName(accessibleText);
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setAlternatingRowColors(true);
    setItemsExpandable(false);
    setEditTriggers(EditKeyPressed);
    setModel(&tableModel);
    setTextElideMode(Qt::ElideMiddle); // names of components differ at their ends
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(QHeaderView::Fixed);
    header()->setSectionsMovable(false);
    header()->setMinimumSectionSize(24);
    listen();
    measureAll();
}

void DockTableView::listen()
{
    connect(&m_table, &QAbstractItemModel::modelReset, this, &DockTableView::measureAll);
    connect(&m_table, &QAbstractItemModel::rowsRemoved, this, [this] {
        if (m_table.rowCount() == 0) // the next rows belong to other data
            measureAll();
    });
    connect(&m_table, &QAbstractItemModel::rowsInserted, this, [this](QModelIndex const&, int first, int last) {
        measure(first, last, 0, m_table.columnCount() - 1);
        // Without a current row nothing would show the keyboard focus.
        if (hasFocus() && !currentIndex().isValid())
            selectionModel()->setCurrentIndex(m_table.index(0, SnapshotTableModel::NameColumn),
                                              QItemSelectionModel::NoUpdate);
    });
    connect(&m_table, &QAbstractItemModel::dataChanged, this,
            [this](QModelIndex const& first, QModelIndex const& last) {
                measure(first.row(), last.row(), first.column(), last.column());
            });
}

QSize DockTableView::sizeHint() const
{
    int const rowHeight = fontMetrics().height() + 4;
    return {widthInCharacters * fontMetrics().averageCharWidth(),
            header()->sizeHint().height() + m_preferredRows * rowHeight + 2 * frameWidth()};
}

void DockTableView::measureAll()
{
    m_widths.assign(static_cast<std::size_t>(m_table.columnCount()), 0);
    for (int column = 0; column < m_table.columnCount(); ++column)
        m_widths[static_cast<std::size_t>(column)] = header()->sectionSizeHint(column);
    measure(0, m_table.rowCount() - 1, 0, m_table.columnCount() - 1);
}

// Measures all rows, not only the visible ones: wider columns bring a scroll bar, which changes what rows are visible.
void DockTableView::measure(int firstRow, int lastRow, int firstColumn, int lastColumn)
{
    for (int column = firstColumn; column <= lastColumn; ++column) {
        int& width = m_widths[static_cast<std::size_t>(column)];
        bool const isName = column == SnapshotTableModel::NameColumn;
        bool const isNumber = column == SnapshotTableModel::NumberColumn; // of which the last is the widest
        for (int row = isNumber ? std::max(lastRow, 0) : firstRow; row <= lastRow && !(isName && width >= widestName());
             ++row)
            if (row == firstRow || isNumber || m_table.knownText(row, column) != m_table.knownText(row - 1, column))
                width = std::max(width, widthOf(row, column));
    }
    fitColumns();
}

// The size hint of the delegate, but for the known text: the delegate would make the model compute it.
int DockTableView::widthOf(int row, int column) const
{
    QModelIndex const index = m_table.index(row, column);
    QStyleOptionViewItem option = viewOptions();
    QVariant const font = index.data(Qt::FontRole);
    if (font.isValid()) {
        option.font = font.value<QFont>().resolve(option.font);
        option.fontMetrics = QFontMetrics(option.font);
    }
    option.features |= QStyleOptionViewItem::HasDisplay;
    if (index.data(Qt::CheckStateRole).isValid())
        option.features |= QStyleOptionViewItem::HasCheckIndicator;
    if (index.data(Qt::DecorationRole).isValid())
        option.features |= QStyleOptionViewItem::HasDecoration;
    option.index = index;
    option.text = m_table.knownText(row, column);
    option.widget = this;
    return style()->sizeFromContents(QStyle::CT_ItemViewItem, &option, {}, this).width();
}

int DockTableView::widestName() const
{
    return readableCharacters * fontMetrics().averageCharWidth();
}

void DockTableView::fitColumns()
{
    int others = 0;
    for (int column = 0; column < m_table.columnCount(); ++column) {
        if (column == SnapshotTableModel::NameColumn)
            continue;
        int const width = m_widths[static_cast<std::size_t>(column)];
        header()->resizeSection(column, width);
        others += width;
    }
    int const readable = std::min(m_widths[SnapshotTableModel::NameColumn], widestName());
    header()->resizeSection(SnapshotTableModel::NameColumn, std::max(readable, viewport()->width() - others));
}

void DockTableView::resizeEvent(QResizeEvent* event)
{
    QTreeView::resizeEvent(event);
    fitColumns();
}

void DockTableView::changeEvent(QEvent* event)
{
    QTreeView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        measureAll();
}

void DockTableView::focusInEvent(QFocusEvent* event)
{
    QTreeView::focusInEvent(event);
    update();
}

void DockTableView::focusOutEvent(QFocusEvent* event)
{
    QTreeView::focusOutEvent(event);
    update();
}

// Draws a focus frame as text fields have it, since a table without rows has nothing else that shows the focus.
bool DockTableView::event(QEvent* event)
{
    bool const handled = QTreeView::event(event);
    if (event->type() == QEvent::Paint && hasFocus()) {
        QPainter painter(this);
        painter.setPen(palette().color(QPalette::Highlight));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
    return handled;
}

bool DockTableView::edit(QModelIndex const& index, EditTrigger trigger, QEvent* event)
{
    if (trigger == EditKeyPressed)
        return QTreeView::edit(index.siblingAtColumn(SnapshotTableModel::NameColumn), trigger, event);
    if (event && event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Space)
        return QTreeView::edit(index.siblingAtColumn(SnapshotTableModel::NumberColumn), trigger, event);
    return QTreeView::edit(index, trigger, event);
}

} // namespace veldraw::app

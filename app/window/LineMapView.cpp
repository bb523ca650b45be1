#include "app/window/LineMapView.h"

#include "app/window/LineMapDelegate.h"
#include "app/window/LineMapTableModel.h"

#include <QHeaderView>
#include <QKeyEvent>

#include <algorithm>

namespace veldraw::app {

namespace {

constexpr int readableNameLength = 30; // characters

} // namespace

LineMapView::LineMapView(LineMapTableModel& tableModel, QWidget* parent)
    : QTableView(parent)
{
    auto* const delegate = new LineMapDelegate(tableModel, this);
    connect(delegate, &LineMapDelegate::otherColourWanted, this, &LineMapView::otherColourWanted);
    setObjectName(QStringLiteral("lineMapTable"));
    setAccessibleName(QStringLiteral("Line maps"));
    setModel(&tableModel);
    setItemDelegate(delegate);
    setSelectionBehavior(SelectRows);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(DoubleClicked | EditKeyPressed);
    setTabKeyNavigation(false);
    setAlternatingRowColors(true);
    setShowGrid(false);
    setTextElideMode(Qt::ElideMiddle);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setMaximumSectionSize(readableNameLength * fontMetrics().averageCharWidth());
    horizontalHeader()->setResizeContentsPrecision(100);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    horizontalHeader()->setDefaultSectionSize(horizontalHeader()->minimumSectionSize());
    widenColumns();
}

void LineMapView::widenColumns()
{
    for (int column = 0; column < model()->columnCount(); ++column) {
        int const needed = std::max(sizeHintForColumn(column), horizontalHeader()->sectionSizeHint(column));
        int const most = horizontalHeader()->maximumSectionSize();
        if (needed > columnWidth(column))
            setColumnWidth(column, std::min(needed, most));
    }
}

bool LineMapView::edit(QModelIndex const& index, EditTrigger trigger, QEvent* event)
{
    bool const isSpace =
        event && event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Space;
    bool const isOther = isSpace && index.column() != LineMapTableModel::SymbolsColumn;
    return QTableView::edit(isOther ? index.siblingAtColumn(LineMapTableModel::NumberColumn) : index, trigger, event);
}

QItemSelectionModel::SelectionFlags LineMapView::selectionCommand(QModelIndex const& index, QEvent const* event) const
{
    bool const isRelease = event && event->type() == QEvent::MouseButtonRelease;
    if (isRelease && index.isValid() && index.column() != LineMapTableModel::NameColumn)
        return QItemSelectionModel::NoUpdate;
    return QTableView::selectionCommand(index, event);
}

} // namespace veldraw::app

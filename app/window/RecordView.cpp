#include "app/window/RecordView.h"

#include "app/window/SnapshotTableModel.h"

#include <QHeaderView>
#include <QKeyEvent>

namespace veldraw::app {

RecordView::RecordView(SnapshotTableModel& tableModel, QString const& name, QString const& accessibleText,
                       QWidget* parent)
    : QTreeView(parent)
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
    // The name has what the others leave; only rows in sight count, so ranges of the others need not be known.
    header()->setStretchLastSection(false);
    header()->setResizeContentsPrecision(0);
    header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    header()->setSectionResizeMode(SnapshotTableModel::NameColumn, QHeaderView::Stretch);
    header()->setSectionsMovable(false);
    header()->setMinimumSectionSize(24);
}

QSize RecordView::sizeHint() const
{
    int const rowHeight = fontMetrics().height() + 4;
    return {372, header()->sizeHint().height() + m_preferredRows * rowHeight + 2 * frameWidth()};
}

bool RecordView::edit(QModelIndex const& index, EditTrigger trigger, QEvent* event)
{
    if (trigger == EditKeyPressed)
        return QTreeView::edit(index.siblingAtColumn(SnapshotTableModel::NameColumn), trigger, event);
    if (event && event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Space)
        return QTreeView::edit(index.siblingAtColumn(SnapshotTableModel::NumberColumn), trigger, event);
    return QTreeView::edit(index, trigger, event);
}

} // namespace veldraw::app

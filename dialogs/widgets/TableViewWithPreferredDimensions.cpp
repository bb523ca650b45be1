#include "dialogs/widgets/TableViewWithPreferredDimensions.h"

#include <QHeaderView>
#include <QPointer>
#include <QScrollBar>

#include <algorithm>

namespace veldraw::dialogs::common {

TableViewWithPreferredDimensions::TableViewWithPreferredDimensions(QWidget* parent)
    : QTableView(parent)
{
}

TableViewWithPreferredDimensions::~TableViewWithPreferredDimensions() = default;

void TableViewWithPreferredDimensions::setPreferredNumberOfRows(int count)
{
    m_preferredRows = std::max(count, 0);
    updateGeometry();
}

void TableViewWithPreferredDimensions::setPreferredNumberOfColumns(int count)
{
    m_preferredColumns = std::max(count, 0);
    updateGeometry();
}

QSize TableViewWithPreferredDimensions::sizeHint() const
{
    QSize hint = QTableView::sizeHint();
    int const frame = 2 * frameWidth();
    // A header that was never laid out has no width yet; its size hint or minimum tells what it will take.
    int const rowHeader = std::max(verticalHeader()->sizeHint().width(), verticalHeader()->minimumWidth());
    if (m_preferredColumns > 0)
        hint.setWidth(m_preferredColumns * horizontalHeader()->defaultSectionSize() + rowHeader + frame +
                      verticalScrollBar()->sizeHint().width());
    if (m_preferredRows > 0)
        hint.setHeight(m_preferredRows * verticalHeader()->defaultSectionSize() +
                       horizontalHeader()->sizeHint().height() + frame + horizontalScrollBar()->sizeHint().height());
    return hint;
}

void TableViewWithPreferredDimensions::layOutNow()
{
    executeDelayedItemsLayout();
    updateGeometries();
}

QWidget* TableViewWithPreferredDimensions::openEditor() const
{
    return indexWidget(currentIndex());
}

void TableViewWithPreferredDimensions::finishEdit()
{
    QPointer<QWidget> const editor = openEditor();
    if (!editor)
        return;
    commitData(editor);
    // Whoever refused the text may have told the user, and much can happen until that is read.
    if (editor)
        closeEditor(editor, QAbstractItemDelegate::NoHint);
}

} // namespace veldraw::dialogs::common

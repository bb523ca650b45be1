#include "dialogs/spreadsheet/EnterKeyTableNavigator.h"

#include "dialogs/spreadsheet/TableCells.h"
#include "dialogs/spreadsheet/TableWindow.h"

#include <QKeyEvent>
#include <QTableView>

#include <optional>

namespace veldraw::sdk::ui::propertymanager {

namespace {

using dialogs::propertybindings::models::ModelIndex;

ModelIndex next(ModelIndex const& cell, TableCells const& cells)
{
    if (cell.row + 1 < cells.rowCount())
        return ModelIndex(cell.row + 1, cell.column);
    if (cell.column + 1 < cells.columnCount())
        return ModelIndex(0, cell.column + 1);
    return ModelIndex(0, 0);
}

} // namespace

EnterKeyTableNavigator::EnterKeyTableNavigator(QTableView& table)
    : QObject(&table)
    , m_table(table)
{
    m_table.installEventFilter(this);
}

EnterKeyTableNavigator::~EnterKeyTableNavigator()
{
    m_table.removeEventFilter(this);
}

bool EnterKeyTableNavigator::eventFilter(QObject*, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return false;
    int const key = static_cast<QKeyEvent*>(event)->key();
    if (key != Qt::Key_Return && key != Qt::Key_Enter)
        return false;
    moveOn();
    return true;
}

void EnterKeyTableNavigator::moveOn()
{
    TableCells const cells(m_table);
    if (cells.rowCount() == 0 || cells.columnCount() == 0)
        return;
    TableWindow* const window = TableWindow::of(m_table);
    std::optional<ModelIndex> current;
    if (window)
        current = window->current();
    else if (m_table.currentIndex().isValid())
        current = cells.cell(m_table.currentIndex());
    ModelIndex const target = current ? next(*current, cells) : ModelIndex(0, 0);
    if (window)
        window->setCurrent(target, false);
    else
        m_table.setCurrentIndex(cells.show(target));
}

} // namespace veldraw::sdk::ui::propertymanager

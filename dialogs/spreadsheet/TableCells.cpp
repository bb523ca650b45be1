#include "dialogs/spreadsheet/TableCells.h"

#include <QTableView>

namespace veldraw::sdk::ui::propertymanager {

using dialogs::propertybindings::models::QTableModelAdapter;

TableCells::TableCells(QTableView const& view)
    : m_items(view.model())
    , m_adapter(qobject_cast<QTableModelAdapter*>(view.model()))
{
}

unsigned long long TableCells::rowCount() const
{
    if (m_adapter)
        return m_adapter->totalRows();
    return m_items ? static_cast<unsigned long long>(m_items->rowCount()) : 0;
}

unsigned long long TableCells::columnCount() const
{
    if (m_adapter)
        return m_adapter->totalColumns();
    return m_items ? static_cast<unsigned long long>(m_items->columnCount()) : 0;
}

TableCells::Cell TableCells::cell(QModelIndex const& index) const
{
    if (m_adapter)
        return m_adapter->tableIndex(index);
    return Cell(static_cast<unsigned long long>(index.row()), static_cast<unsigned long long>(index.column()));
}

QModelIndex TableCells::show(Cell const& cell) const
{
    if (cell.row >= rowCount() || cell.column >= columnCount())
        return QModelIndex();
    if (!m_adapter)
        return m_items->index(static_cast<int>(cell.row), static_cast<int>(cell.column));
    // First both windows, then the index: the second move must not make it stale.
    m_adapter->showRow(cell.row);
    m_adapter->showColumn(cell.column);
    return m_adapter->index(m_adapter->windowRow(cell.row), m_adapter->windowColumn(cell.column));
}

} // namespace veldraw::sdk::ui::propertymanager

#include "dialogs/models/QTableModelAdapter.h"

#include <algorithm>

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

QTableModelAdapter::QTableModelAdapter(TableModelInterface& model, QObject* parentObject)
    : QTableModelAdapter(model, mostAtOnce, parentObject)
{
}

QTableModelAdapter::QTableModelAdapter(TableModelInterface& model, int windowSize, QObject* parentObject)
    : QAbstractTableModel(parentObject)
    , m_model(model)
    , m_rows(windowSize)
    , m_columns(windowSize)
{
    m_rows.setTotal(m_model.rowCount());
    m_columns.setTotal(m_model.columnCount());
    m_model.addListener(this);
}

QTableModelAdapter::~QTableModelAdapter()
{
    m_model.removeListener(this);
}

int QTableModelAdapter::rowCount(QModelIndex const& parentIndex) const
{
    return parentIndex.isValid() ? 0 : m_rows.size();
}

int QTableModelAdapter::columnCount(QModelIndex const& parentIndex) const
{
    return parentIndex.isValid() ? 0 : m_columns.size();
}

ModelIndex QTableModelAdapter::tableIndex(QModelIndex const& modelIndex) const
{
    return ModelIndex(m_rows.thing(modelIndex.row()), m_columns.thing(modelIndex.column()));
}

bool QTableModelAdapter::isCell(QModelIndex const& modelIndex) const
{
    return modelIndex.isValid() && modelIndex.model() == this && modelIndex.row() < m_rows.size() &&
           modelIndex.column() < m_columns.size();
}

QVariant QTableModelAdapter::data(QModelIndex const& modelIndex, int role) const
{
    // A text in both roles, never a number: a number would be edited in a spin box that rounds it.
    if ((role != Qt::DisplayRole && role != Qt::EditRole) || !isCell(modelIndex))
        return QVariant();
    return QString::fromStdString(m_model.getStr(tableIndex(modelIndex)));
}

QVariant QTableModelAdapter::headerData(int section, Qt::Orientation orientation, int role) const
{
    IndexWindow const& window = orientation == Qt::Vertical ? m_rows : m_columns;
    if (role != Qt::DisplayRole || section < 0 || section >= window.size())
        return QVariant();
    unsigned long long const thing = window.thing(section);
    return QString::fromStdString(orientation == Qt::Vertical ? m_model.rowName(thing) : m_model.columnName(thing));
}

bool QTableModelAdapter::setData(QModelIndex const& modelIndex, QVariant const& value, int role)
{
    if (role != Qt::EditRole || !isCell(modelIndex))
        return false;
    return m_model.setStr(tableIndex(modelIndex), value.toString().toStdString());
}

Qt::ItemFlags QTableModelAdapter::flags(QModelIndex const& modelIndex) const
{
    if (!isCell(modelIndex))
        return Qt::NoItemFlags;
    Qt::ItemFlags const readable = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    return m_model.isEditable(tableIndex(modelIndex)) ? readable | Qt::ItemIsEditable : readable;
}

void QTableModelAdapter::setFirstRow(unsigned long long row)
{
    moveWindow(m_rows, row, Qt::Vertical);
}

void QTableModelAdapter::setFirstColumn(unsigned long long column)
{
    moveWindow(m_columns, column, Qt::Horizontal);
}

namespace {

// Where a window begins that has the thing in its middle.
unsigned long long startAround(IndexWindow const& window, unsigned long long thing)
{
    return thing - std::min(thing, static_cast<unsigned long long>(window.size() / 2));
}

} // namespace

int QTableModelAdapter::showRow(unsigned long long tableRow)
{
    if (tableRow >= totalRows())
        return -1;
    if (windowRow(tableRow) < 0)
        setFirstRow(startAround(m_rows, tableRow));
    return windowRow(tableRow);
}

int QTableModelAdapter::showColumn(unsigned long long tableColumn)
{
    if (tableColumn >= totalColumns())
        return -1;
    if (windowColumn(tableColumn) < 0)
        setFirstColumn(startAround(m_columns, tableColumn));
    return windowColumn(tableColumn);
}

void QTableModelAdapter::dataChanged(TableModelInterface&)
{
    if (m_model.rowCount() != m_rows.total() || m_model.columnCount() != m_columns.total()) {
        reset();
        return;
    }
    int const lastRow = m_rows.size() - 1;
    int const lastColumn = m_columns.size() - 1;
    if (lastRow >= 0 && lastColumn >= 0)
        Q_EMIT QAbstractTableModel::dataChanged(index(0, 0), index(lastRow, lastColumn));
    // Rows have names where there are no columns, and the other way round. A listener may have altered the size.
    if (lastColumn >= 0 && lastColumn < m_columns.size())
        Q_EMIT headerDataChanged(Qt::Horizontal, 0, lastColumn);
    if (lastRow >= 0 && lastRow < m_rows.size())
        Q_EMIT headerDataChanged(Qt::Vertical, 0, lastRow);
}

void QTableModelAdapter::itemChanged(ModelIndex const& changed, TableModelInterface&)
{
    QModelIndex const shown = index(windowRow(changed.row), windowColumn(changed.column));
    if (shown.isValid())
        Q_EMIT QAbstractTableModel::dataChanged(shown, shown);
}

void QTableModelAdapter::rowsInserted(unsigned long long, unsigned long long, TableModelInterface&)
{
    reset();
}

void QTableModelAdapter::rowsRemoved(unsigned long long, unsigned long long, TableModelInterface&)
{
    reset();
}

void QTableModelAdapter::reset()
{
    beginResetModel();
    m_rows.setTotal(m_model.rowCount());
    m_columns.setTotal(m_model.columnCount());
    endResetModel();
    Q_EMIT windowChanged();
}

void QTableModelAdapter::moveWindow(IndexWindow& window, unsigned long long first, Qt::Orientation orientation)
{
    unsigned long long const start = std::min(first, window.lastFirst());
    if (start == window.first())
        return;
    bool const towardsEnd = start > window.first();
    unsigned long long const distance = towardsEnd ? start - window.first() : window.first() - start;
    if (distance >= static_cast<unsigned long long>(window.size()))
        jump(window, start, orientation);
    else if (towardsEnd)
        moveTowardsEnd(window, static_cast<int>(distance), orientation);
    else
        moveTowardsStart(window, static_cast<int>(distance), orientation);
    Q_EMIT windowChanged();
}

void QTableModelAdapter::moveTowardsEnd(IndexWindow& window, int count, Qt::Orientation orientation)
{
    beginRemove(0, count, orientation);
    window.dropFront(count);
    endRemove(orientation);
    beginInsert(window.size(), count, orientation);
    window.growBack(count);
    endInsert(orientation);
}

void QTableModelAdapter::moveTowardsStart(IndexWindow& window, int count, Qt::Orientation orientation)
{
    beginRemove(window.size() - count, count, orientation);
    window.dropBack(count);
    endRemove(orientation);
    beginInsert(0, count, orientation);
    window.growFront(count);
    endInsert(orientation);
}

void QTableModelAdapter::jump(IndexWindow& window, unsigned long long first, Qt::Orientation orientation)
{
    int const size = window.size();
    beginRemove(0, size, orientation);
    window.restartAt(first);
    endRemove(orientation);
    beginInsert(0, size, orientation);
    window.growBack(size);
    endInsert(orientation);
}

void QTableModelAdapter::beginRemove(int first, int count, Qt::Orientation orientation)
{
    if (orientation == Qt::Vertical)
        beginRemoveRows(QModelIndex(), first, first + count - 1);
    else
        beginRemoveColumns(QModelIndex(), first, first + count - 1);
}

void QTableModelAdapter::endRemove(Qt::Orientation orientation)
{
    if (orientation == Qt::Vertical)
        endRemoveRows();
    else
        endRemoveColumns();
}

void QTableModelAdapter::beginInsert(int first, int count, Qt::Orientation orientation)
{
    if (orientation == Qt::Vertical)
        beginInsertRows(QModelIndex(), first, first + count - 1);
    else
        beginInsertColumns(QModelIndex(), first, first + count - 1);
}

void QTableModelAdapter::endInsert(Qt::Orientation orientation)
{
    if (orientation == Qt::Vertical)
        endInsertRows();
    else
        endInsertColumns();
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models

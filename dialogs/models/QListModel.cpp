#include "dialogs/models/QListModel.h"

#include "dialogs/models/ReadingAsTold.h"

#include <utility>

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

QListModel::~QListModel() = default;

QModelIndex QListModel::index(int row, int column, QModelIndex const& parentIndex) const
{
    if (parentIndex.isValid() || column != 0 || row < 0 || row >= rowCount())
        return QModelIndex();
    return createIndex(row, column);
}

QModelIndex QListModel::parent(QModelIndex const&) const
{
    return QModelIndex();
}

int QListModel::rowCount(QModelIndex const& parentIndex) const
{
    return parentIndex.isValid() ? 0 : listSize() - m_insertionCount;
}

int QListModel::listSize() const
{
    ReadingAsTold const asTold;
    return m_wrapper->size();
}

int QListModel::listRow(QModelIndex const& modelIndex) const
{
    if (!modelIndex.isValid() || modelIndex.model() != this || modelIndex.row() >= rowCount())
        return -1;
    int const row = modelIndex.row();
    return row < m_insertionFirst ? row : row + m_insertionCount;
}

QVariant QListModel::data(QModelIndex const& modelIndex, int role) const
{
    int const row = listRow(modelIndex);
    if (row < 0)
        return QVariant();
    switch (role) {
    case Qt::DisplayRole:
        return QString::fromStdString(m_wrapper->getStr(row));
    case Qt::EditRole:
        return QString::fromStdString(m_wrapper->getStrForEdit(row));
    case Qt::UserRole:
        return m_wrapper->get(row);
    default:
        return QVariant();
    }
}

bool QListModel::setData(QModelIndex const& modelIndex, QVariant const& value, int role)
{
    int const row = listRow(modelIndex);
    return row >= 0 && role == Qt::EditRole && m_wrapper->setEditedItem(value.toString().toStdString(), row);
}

Qt::ItemFlags QListModel::flags(QModelIndex const& modelIndex) const
{
    int const row = listRow(modelIndex);
    if (row < 0 || m_wrapper->isHeader(row))
        return Qt::NoItemFlags;
    Qt::ItemFlags const choosable = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    return m_wrapper->isEditable() ? choosable | Qt::ItemIsEditable : choosable;
}

void QListModel::dataChanged()
{
    finishRemoval();
    beginResetModel();
    endResetModel();
}

void QListModel::itemChanged(int row)
{
    QModelIndex const changed = index(row);
    if (changed.isValid())
        Q_EMIT QAbstractListModel::dataChanged(changed, changed);
}

void QListModel::itemsInserted(int first, int last)
{
    finishRemoval();
    if (first < 0 || last < first || last >= listSize()) {
        dataChanged(); // a range that can't be: Qt learns the truth from scratch
        return;
    }
    m_insertionFirst = first;
    m_insertionCount = last - first + 1;
    beginInsertRows(QModelIndex(), first, last);
    m_insertionFirst = 0;
    m_insertionCount = 0;
    endInsertRows();
}

void QListModel::itemsAboutToBeRemoved(int first, int last)
{
    finishRemoval();
    if (first < 0 || last < first || last >= listSize()) {
        m_removal = Removal::Reset;
        beginResetModel();
        return;
    }
    m_removal = Removal::Rows;
    beginRemoveRows(QModelIndex(), first, last);
}

void QListModel::itemsRemoved()
{
    finishRemoval();
}

void QListModel::finishRemoval()
{
    switch (std::exchange(m_removal, Removal::None)) {
    case Removal::Rows:
        endRemoveRows();
        break;
    case Removal::Reset:
        endResetModel();
        break;
    case Removal::None:
        break;
    }
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models

#include "app/window/SnapshotTableModel.h"

#include "platform/vdsdkcommon/AppLock.h"

#include <QFont>

#include <algorithm>
#include <unordered_set>

namespace veldraw::app {

namespace {

// The name may be too long for its column. It is the user's, so marks in it are no markup.
QString toolTipOf(QString const& name, QString const& facts)
{
    QString lines = name.toHtmlEscaped();
    if (!facts.isEmpty())
        lines += QStringLiteral("<br>") + facts.toHtmlEscaped().replace(QLatin1Char('\n'), QStringLiteral("<br>"));
    return QStringLiteral("<p style='white-space:pre'>%1</p>").arg(lines);
}

} // namespace

bool SnapshotTableModel::Row::operator==(Row const& other) const
{
    return id == other.id && texts == other.texts && isChecked == other.isChecked &&
           isEmphasized == other.isEmphasized && toolTip == other.toolTip;
}

SnapshotTableModel::SnapshotTableModel(QStringList headers, bool isCheckable, QObject* parent)
    : QAbstractTableModel(parent)
    , m_headers(std::move(headers))
    , m_isCheckable(isCheckable)
{
}

void SnapshotTableModel::refresh()
{
    std::vector<Row> const rows = readRows();
    removeMissing(rows);
    if (!insertNew(rows)) {
        beginResetModel();
        m_rows = rows;
        endResetModel();
        return;
    }
    updateChanged(rows);
}

void SnapshotTableModel::removeMissing(std::vector<Row> const& rows)
{
    std::unordered_set<kernel::UniqueId> staying;
    for (Row const& row : rows)
        staying.insert(row.id);
    int last = static_cast<int>(m_rows.size()) - 1;
    while (last >= 0) {
        if (staying.count(idAt(last)) != 0) {
            --last;
            continue;
        }
        int first = last;
        while (first > 0 && staying.count(idAt(first - 1)) == 0)
            --first;
        beginRemoveRows({}, first, last);
        m_rows.erase(m_rows.begin() + first, m_rows.begin() + last + 1);
        endRemoveRows();
        last = first - 1;
    }
}

// Puts runs of new rows where they belong. False when rows that stay have changed their order.
bool SnapshotTableModel::insertNew(std::vector<Row> const& rows)
{
    std::unordered_set<kernel::UniqueId> present;
    for (Row const& row : m_rows)
        present.insert(row.id);
    std::size_t position = 0;
    while (position < rows.size()) {
        if (position < m_rows.size() && m_rows[position].id == rows[position].id) {
            ++position;
            continue;
        }
        std::size_t end = position;
        while (end < rows.size() && present.count(rows[end].id) == 0)
            ++end;
        if (end == position)
            return false;
        beginInsertRows({}, static_cast<int>(position), static_cast<int>(end) - 1);
        m_rows.insert(m_rows.begin() + static_cast<std::ptrdiff_t>(position),
                      rows.begin() + static_cast<std::ptrdiff_t>(position),
                      rows.begin() + static_cast<std::ptrdiff_t>(end));
        endInsertRows();
        position = end;
    }
    return true;
}

void SnapshotTableModel::updateChanged(std::vector<Row> const& rows)
{
    int const lastColumn = columnCount() - 1;
    for (std::size_t row = 0; row < rows.size(); ++row) {
        if (m_rows[row] == rows[row])
            continue;
        m_rows[row] = rows[row];
        int const number = static_cast<int>(row);
        Q_EMIT dataChanged(index(number, 0), index(number, lastColumn));
    }
}

kernel::UniqueId SnapshotTableModel::idAt(int row) const
{
    return row >= 0 && row < static_cast<int>(m_rows.size()) ? m_rows[static_cast<std::size_t>(row)].id : 0;
}

int SnapshotTableModel::rowOf(kernel::UniqueId id) const
{
    auto const found = std::find_if(m_rows.begin(), m_rows.end(), [id](Row const& row) { return row.id == id; });
    return found == m_rows.end() ? -1 : static_cast<int>(found - m_rows.begin());
}

QString SnapshotTableModel::knownText(int row, int column) const
{
    return m_rows[static_cast<std::size_t>(row)].texts.value(column);
}

int SnapshotTableModel::rowCount(QModelIndex const& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int SnapshotTableModel::columnCount(QModelIndex const& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_headers.size());
}

QVariant SnapshotTableModel::data(QModelIndex const& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    Row const& row = m_rows[static_cast<std::size_t>(index.row())];
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return row.texts.value(index.column());
    case Qt::CheckStateRole:
        return m_isCheckable && index.column() == NumberColumn ? QVariant(row.isChecked ? Qt::Checked : Qt::Unchecked)
                                                               : QVariant();
    case Qt::ToolTipRole:
        return toolTipOf(row.texts.value(NameColumn), row.toolTip);
    case Qt::FontRole: {
        QFont font;
        font.setBold(row.isEmphasized);
        return row.isEmphasized ? QVariant(font) : QVariant();
    }
    default:
        return {};
    }
}

QVariant SnapshotTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return m_headers.value(section);
}

Qt::ItemFlags SnapshotTableModel::flags(QModelIndex const& index) const
{
    Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    if (!index.isValid())
        return flags;
    flags |= Qt::ItemNeverHasChildren;
    if (index.column() == NameColumn)
        flags |= Qt::ItemIsEditable;
    if (m_isCheckable && index.column() == NumberColumn)
        flags |= Qt::ItemIsUserCheckable;
    return flags;
}

bool SnapshotTableModel::setData(QModelIndex const& index, QVariant const& value, int role)
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return false;
    if (sdk::AppLock::depth() > 0)
        return false;
    sdk::AppLock const lock(sdk::AppLock::RecordAsUsual);
    Row const row = m_rows[static_cast<std::size_t>(index.row())];
    if (!edit(row, index, value, role)) {
        Q_EMIT editRefused();
        return false;
    }
    refresh();
    return true;
}

bool SnapshotTableModel::edit(Row const& row, QModelIndex const& index, QVariant const& value, int role)
{
    if (role == Qt::EditRole && index.column() == NameColumn) {
        QString const name = value.toString().trimmed();
        return name == row.texts.value(NameColumn) || rename(row.id, name); // what is no name, the session refuses
    }
    if (role == Qt::CheckStateRole && m_isCheckable && index.column() == NumberColumn)
        return setChecked(row.id, value.toInt() == Qt::Checked);
    return false;
}

bool SnapshotTableModel::setChecked(kernel::UniqueId, bool)
{
    return false;
}

} // namespace veldraw::app

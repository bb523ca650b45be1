#include "app/window/VariableTableModel.h"

#include "app/window/DataDescription.h"
#include "app/window/VariableRange.h"
#include "kernel/operations/EnableZone.h"
#include "kernel/operations/RenameZone.h"
#include "platform/vdsdkcommon/AppLock.h"

namespace veldraw::app {

VariableTableModel::VariableTableModel(kernel::Session& session, QObject* parent)
    : SnapshotTableModel(
          {QStringLiteral("#"), QStringLiteral("Variable"), QStringLiteral("Range"), QStringLiteral("Location")}, true,
          parent)
    , m_session(session)
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(0);
    connect(&m_timer, &QTimer::timeout, this, &VariableTableModel::computeNextRange);
    refresh();
}

void VariableTableModel::refresh()
{
    SnapshotTableModel::refresh();
    forgetRanges();
}

// Old texts stay on the screen until the new ones are there.
void VariableTableModel::forgetRanges()
{
    m_wanted.clear();
    for (auto entry = m_ranges.begin(); entry != m_ranges.end();) {
        entry->second.isCurrent = false;
        entry = rowOf(entry->first) < 0 ? m_ranges.erase(entry) : std::next(entry);
    }
    if (rowCount() > 0)
        Q_EMIT dataChanged(index(0, rangeColumn), index(rowCount() - 1, rangeColumn), {Qt::DisplayRole});
}

QVariant VariableTableModel::data(QModelIndex const& index, int role) const
{
    if (!index.isValid() || index.column() != rangeColumn)
        return SnapshotTableModel::data(index, role);
    if (role == Qt::DisplayRole)
        return rangeTextOf(idAt(index.row()));
    if (role == Qt::ToolTipRole) {
        auto const found = m_ranges.find(idAt(index.row()));
        if (found != m_ranges.end() && !found->second.explanation.isEmpty())
            return found->second.explanation;
    }
    return SnapshotTableModel::data(index, role);
}

QString VariableTableModel::knownText(int row, int column) const
{
    if (column != rangeColumn)
        return SnapshotTableModel::knownText(row, column);
    auto const found = m_ranges.find(idAt(row));
    return found == m_ranges.end() ? QString::fromUtf8("-1.2346 … 1.2346") : found->second.text;
}

QString VariableTableModel::rangeTextOf(kernel::UniqueId id) const
{
    auto const found = m_ranges.find(id);
    if (found == m_ranges.end() || !found->second.isCurrent) {
        m_wanted.insert(id);
        if (!m_timer.isActive())
            m_timer.start();
    }
    return found == m_ranges.end() ? QString::fromUtf8("…") : found->second.text;
}

void VariableTableModel::computeNextRange()
{
    if (m_wanted.empty())
        return;
    if (sdk::AppLock::depth() > 0) { // somebody is changing the data: look again a little later
        QTimer::singleShot(50, this, [this] { m_timer.start(); });
        return;
    }
    kernel::UniqueId const id = *m_wanted.begin();
    m_wanted.erase(m_wanted.begin());
    auto const dataSet = m_session.activeDataSet();
    int const number = dataSet ? dataSet->variableNumber(id) : 0;
    int const row = rowOf(id);
    if (number > 0 && row >= 0) {
        Range& range = m_ranges[id];
        VariableRange const found(*dataSet, number);
        bool const isNew = found.text() != range.text;
        range = {found.text(), found.explanation(), true};
        if (isNew)
            Q_EMIT dataChanged(index(row, rangeColumn), index(row, rangeColumn), {Qt::DisplayRole});
    }
    if (!m_wanted.empty())
        m_timer.start();
}

std::vector<SnapshotTableModel::Row> VariableTableModel::readRows() const
{
    std::vector<Row> rows;
    auto const dataSet = m_session.activeDataSet();
    for (int number = 1; dataSet && number <= dataSet->variableCount(); ++number) {
        kernel::Variable const& variable = *dataSet->variable(number);
        Row row;
        row.id = variable.id;
        row.texts = QStringList{QString::number(number), QString::fromStdString(variable.name), QString(),
                                variableLocationText(*dataSet, number)};
        row.isChecked = variable.enabled;
        row.toolTip =
            QStringLiteral("%1, %2").arg(variableLocationText(*dataSet, number), variableTypeText(*dataSet, number));
        rows.push_back(std::move(row));
    }
    return rows;
}

bool VariableTableModel::rename(kernel::UniqueId id, QString const& name)
{
    auto const dataSet = m_session.activeDataSet();
    return dataSet &&
           m_session.perform(kernel::RenameVariable(*dataSet, dataSet->variableNumber(id), name.toStdString()));
}

bool VariableTableModel::setChecked(kernel::UniqueId id, bool checked)
{
    auto const dataSet = m_session.activeDataSet();
    return dataSet && m_session.perform(kernel::EnableVariable(*dataSet, dataSet->variableNumber(id), checked));
}

} // namespace veldraw::app

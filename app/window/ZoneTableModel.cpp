#include "app/window/ZoneTableModel.h"

#include "app/window/DataDescription.h"
#include "kernel/operations/EnableZone.h"
#include "kernel/operations/RenameZone.h"

namespace veldraw::app {

namespace {

QString toolTipOf(kernel::Zone const& zone)
{
    QString text =
        zone.isDeferred()
            ? zoneSizeText(zone)
            : QStringLiteral("%1 points, %2 cells").arg(countText(zone.pointCount()), countText(zone.cellCount()));
    if (zone.strand != kernel::staticStrand)
        text += QStringLiteral("\nstrand %1, solution time %2").arg(zone.strand).arg(zone.solutionTime);
    return text;
}

} // namespace

ZoneTableModel::ZoneTableModel(kernel::Session& session, QObject* parent)
    : SnapshotTableModel({QStringLiteral("#"), QStringLiteral("Zone"), QStringLiteral("Type"), QStringLiteral("Size")},
                         true, parent)
    , m_session(session)
{
    refresh();
}

std::vector<SnapshotTableModel::Row> ZoneTableModel::readRows() const
{
    std::vector<Row> rows;
    auto const dataSet = m_session.activeDataSet();
    for (int number = 1; dataSet && number <= dataSet->zoneCount(); ++number) {
        kernel::Zone const& zone = *dataSet->zone(number);
        Row row;
        row.id = zone.id;
        row.texts = QStringList{QString::number(number), QString::fromStdString(zone.name), zoneTypeText(zone.type),
                                zoneSizeText(zone)};
        row.isChecked = zone.enabled;
        row.toolTip = toolTipOf(zone);
        rows.push_back(std::move(row));
    }
    return rows;
}

bool ZoneTableModel::rename(kernel::UniqueId id, QString const& name)
{
    auto const dataSet = m_session.activeDataSet();
    return dataSet && m_session.perform(kernel::RenameZone(*dataSet, dataSet->zoneNumber(id), name.toStdString()));
}

bool ZoneTableModel::setChecked(kernel::UniqueId id, bool checked)
{
    auto const dataSet = m_session.activeDataSet();
    return dataSet && m_session.perform(kernel::EnableZone(*dataSet, dataSet->zoneNumber(id), checked));
}

} // namespace veldraw::app

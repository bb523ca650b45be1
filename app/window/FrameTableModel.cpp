#include "app/window/FrameTableModel.h"

#include "app/window/DataDescription.h"
#include "app/window/Icons.h"
#include "kernel/operations/RenameFrame.h"
#include "platform/vdsdkcommon/AppLock.h"

namespace veldraw::app {

FrameTableModel::FrameTableModel(kernel::Session& session, QObject* parent)
    : SnapshotTableModel({QStringLiteral("#"), QStringLiteral("Frame"), QStringLiteral("Plot Type")}, false, parent)
    , m_session(session)
{
    refresh();
}

std::vector<SnapshotTableModel::Row> FrameTableModel::readRows() const
{
    std::vector<Row> rows;
    auto const page = m_session.activePage();
    if (!page)
        return rows;
    for (auto const& frame : page->frames) {
        Row row;
        row.id = frame->id;
        row.texts = QStringList{QString::number(rows.size() + 1), QString::fromStdString(frame->name),
                                plotTypeText(frame->plotType)};
        row.isEmphasized = frame->id == page->activeFrame;
        QString const title = frame->dataSet ? QString::fromStdString(frame->dataSet->title()) : QString();
        row.toolTip = frame->dataSet ? title : QStringLiteral("no data");
        rows.push_back(std::move(row));
    }
    return rows;
}

QVariant FrameTableModel::data(QModelIndex const& index, int role) const
{
    if (role == Qt::DecorationRole && index.isValid() && index.column() == NumberColumn) {
        auto const page = m_session.activePage();
        bool const isActive = page && page->activeFrame == idAt(index.row());
        return makeIcon(isActive ? Glyph::ActiveFrame : Glyph::InactiveFrame);
    }
    return SnapshotTableModel::data(index, role);
}

bool FrameTableModel::activate(int row)
{
    if (sdk::AppLock::depth() > 0 || idAt(row) == 0)
        return false;
    sdk::AppLock const lock(sdk::AppLock::RecordAsUsual);
    return m_session.activateFrame(idAt(row));
}

bool FrameTableModel::rename(kernel::UniqueId id, QString const& name)
{
    return m_session.perform(kernel::RenameFrame(id, name.toStdString()));
}

} // namespace veldraw::app

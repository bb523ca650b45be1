#pragma once

#include "app/window/SnapshotTableModel.h"
#include "kernel/session/Session.h"

namespace veldraw::app {

/// The frames of the active page: number, name, plot type; the active frame is set in bold with a mark at its number.
class FrameTableModel : public SnapshotTableModel
{
    Q_OBJECT

public:
    explicit FrameTableModel(kernel::Session& session, QObject* parent = nullptr);

    QVariant data(QModelIndex const& index, int role = Qt::DisplayRole) const override;

    /// Makes the frame of a row the active one; refused while an AppLock is held. @return false when it is refused
    bool activate(int row);

protected:
    std::vector<Row> readRows() const override;
    bool rename(kernel::UniqueId id, QString const& name) override;

private:
    kernel::Session& m_session;
};

} // namespace veldraw::app

#pragma once

#include "app/window/SnapshotTableModel.h"
#include "kernel/session/Session.h"

namespace veldraw::app {

/// The zones of the active frame's data set: number with enabled check box, name, type, size.
class ZoneTableModel : public SnapshotTableModel
{
    Q_OBJECT

public:
    explicit ZoneTableModel(kernel::Session& session, QObject* parent = nullptr);

protected:
    std::vector<Row> readRows() const override;
    bool rename(kernel::UniqueId id, QString const& name) override;
    bool setChecked(kernel::UniqueId id, bool checked) override;

private:
    kernel::Session& m_session;
};

} // namespace veldraw::app

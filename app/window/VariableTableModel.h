#pragma once

#include "app/window/SnapshotTableModel.h"
#include "kernel/session/Session.h"

#include <QTimer>

#include <set>
#include <unordered_map>

namespace veldraw::app {

/// The variables of the active frame's data set: number with enabled check box, name, range, location.
///
/// A range costs a look at every value. It is computed only for rows that a view asks for, one row at a time when the event
/// loop has nothing else to do; until then the cell shows "…", or the range of before a change.
class VariableTableModel : public SnapshotTableModel
{
    Q_OBJECT

public:
    static constexpr int rangeColumn = 2;

    explicit VariableTableModel(kernel::Session& session, QObject* parent = nullptr);

    void refresh() override;
    QVariant data(QModelIndex const& index, int role = Qt::DisplayRole) const override;
    QString knownText(int row, int column) const override;

protected:
    std::vector<Row> readRows() const override;
    bool rename(kernel::UniqueId id, QString const& name) override;
    bool setChecked(kernel::UniqueId id, bool checked) override;

private:
    struct Range
    {
        QString text;
        QString explanation; // the tool tip of a range that is not exact
        bool isCurrent = false;
    };

    QString rangeTextOf(kernel::UniqueId id) const;
    void forgetRanges();
    void computeNextRange();

    kernel::Session& m_session;
    std::unordered_map<kernel::UniqueId, Range> m_ranges;
    mutable std::set<kernel::UniqueId> m_wanted; // asked for by a view, still to be computed
    mutable QTimer m_timer;
};

} // namespace veldraw::app

#pragma once

#include <QTreeView>

namespace veldraw::app {

class SnapshotTableModel;

/// A plain table for the lists in the docks: whole rows, no grid, F2 edits the name and Space ticks the check box of the
/// current row wherever the cursor stands in it.
class RecordView : public QTreeView
{
    Q_OBJECT

public:
    /// @param name object name; @param accessibleText what the list contains, for screen readers
    RecordView(SnapshotTableModel& model, QString const& name, QString const& accessibleText,
               QWidget* parent = nullptr);

    QSize sizeHint() const override;

    /// Rows that the view would like to show without scrolling.
    void setPreferredRows(int rows) { m_preferredRows = rows; }

protected:
    bool edit(QModelIndex const& index, EditTrigger trigger, QEvent* event) override;

private:
    int m_preferredRows = 6;
};

} // namespace veldraw::app

#pragma once

#include <QTreeView>

#include <vector>

namespace veldraw::app {

class SnapshotTableModel;

/// A plain table for the lists in the docks: whole rows, no grid, F2 edits the name and Space ticks the check box of the
/// current row wherever the cursor stands in it.
///
/// Columns are as wide as the widest of their texts, whichever rows are in sight, and never become narrower while the table has
/// rows; the name has what the others leave, but always enough to be read. What does not fit is scrolled to.
class DockTableView : public QTreeView
{
    Q_OBJECT

public:
    /// @param name object name; @param accessibleText what the list contains, for screen readers
    DockTableView(SnapshotTableModel& model, QString const& name, QString const& accessibleText,
                  QWidget* parent = nullptr);

    QSize sizeHint() const override;

    /// Rows that the view would like to show without scrolling.
    void setPreferredRows(int rows) { m_preferredRows = rows; }

protected:
    bool edit(QModelIndex const& index, EditTrigger trigger, QEvent* event) override;
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void listen();
    void measureAll();
    void measure(int firstRow, int lastRow, int firstColumn, int lastColumn);
    int widthOf(int row, int column) const;
    int widestName() const;
    void fitColumns();

    SnapshotTableModel& m_table;
    std::vector<int> m_widths; // one a column, of the widest text so far
    int m_preferredRows = 6;
};

} // namespace veldraw::app

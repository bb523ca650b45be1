#pragma once

#include <QTreeView>

#include <vector>

namespace veldraw::app {

class SnapshotTableModel;

/// The table of frames, zones or variables in a dock. It selects whole rows and has no grid. In any column of the current
/// row, F2 edits the name and Space switches the check box.
///
/// A column is as wide as the widest text of all rows, and becomes narrower only when the table is empty. The column of the
/// name gets the rest of the width, but at least enough to be read; the view scrolls if that does not fit.
class DockTableView : public QTreeView
{
    Q_OBJECT

public:
    /// @param name object name; @param accessibleText what the list contains, for screen readers
    DockTableView(SnapshotTableModel& model, QString const& name, QString const& accessibleText,
                  QWidget* parent = nullptr);

    QSize sizeHint() const override;

    /// Number of rows that the preferred height has room for.
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

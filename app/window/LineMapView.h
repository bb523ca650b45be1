#pragma once

#include <QTableView>

namespace veldraw::app {

class LineMapTableModel;

/// The table of line maps. Cells are edited in place, by a double click or F2; Space switches the box of the cell, or else that of the
/// row. A click at one of several selected rows keeps the others selected, so that they change together; a click at a name does not.
class LineMapView : public QTableView
{
    Q_OBJECT

public:
    explicit LineMapView(LineMapTableModel& model, QWidget* parent = nullptr);

    /// Makes columns wider where their contents need it, up to the width of a readable name.
    void widenColumns();

Q_SIGNALS:
    /// The user wants to choose any colour for a cell.
    void otherColourWanted(QModelIndex const& index);

protected:
    bool edit(QModelIndex const& index, EditTrigger trigger, QEvent* event) override;
    QItemSelectionModel::SelectionFlags selectionCommand(QModelIndex const& index, QEvent const* event) const override;
};

} // namespace veldraw::app

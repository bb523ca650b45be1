#pragma once

#include <QAction>

class QTableView;

namespace veldraw::sdk::ui::propertymanager {

class TableWindow;

/// Asks for a row number, one-based, and makes the cell of the current column in that row the current one. Its shortcut is
/// Ctrl+G.
class GoToRowAction : public QAction
{
    Q_OBJECT

public:
    /// Belongs to the table.
    /// @param window of the table
    GoToRowAction(TableWindow& window, QTableView& table);
    ~GoToRowAction() override;

private:
    void ask();
    void goTo(QString const& rowNumber);

    TableWindow& m_window;
    QTableView& m_table;
};

} // namespace veldraw::sdk::ui::propertymanager

#pragma once

#include <QAction>

class QTableView;

namespace veldraw::sdk::ui::propertymanager {

class TableWindow;

/// Asks for the number of a row, from 1, and goes there in the current column. Ctrl+G in the table triggers it.
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

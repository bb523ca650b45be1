#pragma once

#include <QObject>

class QKeyEvent;
class QTableView;

namespace veldraw::sdk::ui::propertymanager {

/// Lets Return and Enter move the current cell of a table: down the column, then on to the top of the next one, from the
/// last cell to the first. With no current cell they go to the first one.
class EnterKeyTableNavigator : public QObject
{
    Q_OBJECT

public:
    /// Belongs to the table and filters its events.
    explicit EnterKeyTableNavigator(QTableView& table);
    ~EnterKeyTableNavigator() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void moveOn();

    QTableView& m_table;
};

} // namespace veldraw::sdk::ui::propertymanager

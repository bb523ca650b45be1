#pragma once

#include "dialogs/spreadsheet/TableCells.h"

#include <QObject>

#include <optional>

class QKeyEvent;

namespace veldraw::sdk::ui::propertymanager {

class TableWindow;

/// Moves the current cell by keys in a table that has more rows or columns than its view: arrows, Page Up, Page Down, Home,
/// End and Tab, with Control, and with Shift to select. A table that the view shows whole is left to the view.
class LongTableKeyNavigator : public QObject
{
    Q_OBJECT

public:
    /// Belongs to the window's view and filters its events.
    LongTableKeyNavigator(TableWindow& window, QObject& view);
    ~LongTableKeyNavigator() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    using Cell = TableCells::Cell;

    std::optional<Cell> target(QKeyEvent const& key) const;
    std::optional<Cell> targetInRow(QKeyEvent const& key, Cell const& cell) const;
    Cell nextInReading(Cell const& cell) const;
    Cell previousInReading(Cell const& cell) const;

    TableWindow& m_window;
};

} // namespace veldraw::sdk::ui::propertymanager

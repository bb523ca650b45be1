#pragma once

#include "dialogs/spreadsheet/TableCells.h"

#include <QObject>

#include <optional>

class QKeyEvent;

namespace veldraw::sdk::ui::propertymanager {

class TableWindow;

/// The keys that move the current cell, over all of a table that is longer than its view can hold: arrows, Page Up and Page
/// Down, Home, End and Tab, with Control and, to select, with Shift. In a shorter table the view sees to its keys itself.
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

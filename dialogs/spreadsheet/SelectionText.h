#pragma once

#include "dialogs/spreadsheet/TableWindow.h"

#include <QString>

#include <functional>
#include <string>

namespace veldraw::ui {
class TableCopyHandler;
}

namespace veldraw::sdk::ui::propertymanager {

/// The selected part of a table of any length as text, for the clipboard: the rows and columns in which something is selected, with
/// nothing in the places between the selected cells.
class SelectionText
{
public:
    using CellText = std::function<std::string(TableWindow::Cell const&)>;

    /// More cells than this are not copied: they would fill the memory rather than the clipboard.
    static constexpr unsigned long long mostCells = 1000000;

    /// Nor are cells with more places between them than this: each takes a separator.
    static constexpr unsigned long long mostPlaces = 20000000;

    /// Has the handler copy the selection of the window.
    /// @param window must outlive the handler's use
    /// @param cellText of a cell of the table behind the window
    static void giveTo(veldraw::ui::TableCopyHandler& handler, TableWindow const& window, CellText const& cellText);

private:
    static QString text(TableWindow::Ranges const& ranges, CellText const& cellText);
};

} // namespace veldraw::sdk::ui::propertymanager

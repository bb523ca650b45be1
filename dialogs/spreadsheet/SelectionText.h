#pragma once

#include "dialogs/spreadsheet/TableWindow.h"

#include <QString>

namespace veldraw::ui {
class TableCopyHandler;
}

namespace veldraw::sdk::ui::propertymanager {

/// The selected part of a table of any length as text, for the clipboard.
class SelectionText
{
public:
    using TableModel = dialogs::propertybindings::models::TableModelInterface;

    /// More cells than this are not copied: they would fill the memory rather than the clipboard.
    static constexpr unsigned long long mostCells = 1000000;

    /// Has the handler copy the selection of the window.
    /// @param table behind the window. All three must outlive the handler's use
    static void giveTo(veldraw::ui::TableCopyHandler& handler, TableWindow const& window, TableModel const& table);

private:
    static QString text(TableWindow::Ranges const& ranges, TableModel const& table);
};

} // namespace veldraw::sdk::ui::propertymanager

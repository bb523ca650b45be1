#include "dialogs/spreadsheet/SelectionText.h"

#include "dialogs/widgets/TableCopyHandler.h"
#include "platform/vdsdkbase/VelUtilDialog.h"
#include "platform/vdsdkcommon/WaitState.h"

namespace veldraw::sdk::ui::propertymanager {

using dialogs::propertybindings::models::ModelIndex;

void SelectionText::giveTo(veldraw::ui::TableCopyHandler& handler, TableWindow const& window, TableModel const& table)
{
    handler.setSelectedText([&handler, &window, &table] {
        // A selection in pieces was made by hand, cell by cell, and is all in the view.
        return window.selection() ? text(*window.selection(), table) : handler.textOfView();
    });
}

QString SelectionText::text(TableWindow::Range const& range, TableModel const& table)
{
    unsigned long long const rows = range.last.row - range.first.row + 1;
    unsigned long long const columns = range.last.column - range.first.column + 1;
    if (rows > mostCells / columns) {
        VelUtilDialogErrMsg("Too many cells are selected: no more than 1000000 can be copied.");
        return QString();
    }
    WaitState const busy;
    QString text = QStringLiteral("");
    for (unsigned long long row = range.first.row; row <= range.last.row; ++row) {
        if (row > range.first.row)
            text += QLatin1Char('\n');
        for (unsigned long long column = range.first.column; column <= range.last.column; ++column) {
            if (column > range.first.column)
                text += QLatin1Char('\t');
            text += QString::fromStdString(table.getStr(ModelIndex(row, column)));
        }
    }
    return text;
}

} // namespace veldraw::sdk::ui::propertymanager

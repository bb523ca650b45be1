#include "dialogs/spreadsheet/SelectionText.h"

#include "dialogs/widgets/TableCopyHandler.h"
#include "platform/vdsdkbase/VelUtilDialog.h"
#include "platform/vdsdkcommon/WaitState.h"

namespace veldraw::sdk::ui::propertymanager {

using dialogs::propertybindings::models::ModelIndex;

namespace {

// Null, which leaves the clipboard alone.
QString refused()
{
    VelUtilDialogErrMsg("Too many cells are selected: no more than 1000000 can be copied.");
    return QString();
}

} // namespace

void SelectionText::giveTo(veldraw::ui::TableCopyHandler& handler, TableWindow const& window, TableModel const& table)
{
    handler.setSelectedText([&handler, &window, &table] {
        if (window.selection())
            return text(*window.selection(), table);
        // A selection in pieces was made by hand, and the view has it; but the pieces may be far from each other.
        bool const isTooLarge = static_cast<unsigned long long>(handler.cellCountOfView()) > mostCells;
        return isTooLarge ? refused() : handler.textOfView();
    });
}

QString SelectionText::text(TableWindow::Range const& range, TableModel const& table)
{
    unsigned long long const rows = range.last.row - range.first.row + 1;
    unsigned long long const columns = range.last.column - range.first.column + 1;
    if (rows > mostCells / columns)
        return refused();
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

#include "dialogs/spreadsheet/SelectionText.h"

#include "dialogs/widgets/TableCopyHandler.h"
#include "platform/vdsdkbase/VelUtilDialog.h"
#include "platform/vdsdkcommon/WaitState.h"

#include <algorithm>

namespace veldraw::sdk::ui::propertymanager {

using dialogs::propertybindings::models::ModelIndex;

namespace {

CellRange around(TableWindow::Ranges const& ranges)
{
    CellRange all = ranges.front();
    for (CellRange const& range : ranges)
        all = all.unitedWith(range);
    return all;
}

} // namespace

void SelectionText::giveTo(veldraw::ui::TableCopyHandler& handler, TableWindow const& window, CellText const& cellText)
{
    handler.setSelectedText([&window, cellText] { return text(window.selection(), cellText); });
}

// Null, which leaves the clipboard alone, for nothing and for too much.
QString SelectionText::text(TableWindow::Ranges const& ranges, CellText const& cellText)
{
    if (ranges.empty())
        return QString();
    auto const [first, last] = around(ranges);
    unsigned long long const rows = last.row - first.row + 1;
    unsigned long long const columns = last.column - first.column + 1;
    if (rows > mostCells / columns) {
        VelUtilDialogErrMsg("Too many cells are selected: no more than 1000000 can be copied.");
        return QString();
    }
    auto const isSelected = [&ranges](ModelIndex const& cell) {
        return std::any_of(ranges.begin(), ranges.end(), [&](CellRange const& range) { return range.contains(cell); });
    };
    WaitState const busy;
    QString text = QStringLiteral("");
    for (unsigned long long row = first.row; row <= last.row; ++row) {
        if (row > first.row)
            text += QLatin1Char('\n');
        for (unsigned long long column = first.column; column <= last.column; ++column) {
            if (column > first.column)
                text += QLatin1Char('\t');
            if (isSelected(ModelIndex(row, column)))
                text += QString::fromStdString(cellText(ModelIndex(row, column)));
        }
    }
    return text;
}

} // namespace veldraw::sdk::ui::propertymanager

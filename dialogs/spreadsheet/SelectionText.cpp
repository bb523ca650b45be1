#include "dialogs/spreadsheet/SelectionText.h"

#include "dialogs/widgets/TableCopyHandler.h"
#include "platform/vdsdkbase/VelUtilDialog.h"
#include "platform/vdsdkcommon/WaitState.h"

#include <algorithm>
#include <numeric>
#include <set>

namespace veldraw::sdk::ui::propertymanager {

using dialogs::propertybindings::models::ModelIndex;

namespace {

using Number = unsigned long long;

/// Rows or columns that follow one another, both ends included.
struct Span
{
    Number first;
    Number last;
};

using Spans = std::vector<Span>;

/// Rows that follow one another and in which the same columns are selected.
struct Band
{
    Span rows;
    Spans columns;
};

Number countOf(Spans const& spans)
{
    return std::accumulate(spans.begin(), spans.end(), Number{0},
                           [](Number sum, Span const& span) { return sum + (span.last - span.first + 1); });
}

// In ascending order, with what overlaps or touches as one.
Spans merged(Spans spans)
{
    std::sort(spans.begin(), spans.end(), [](Span const& a, Span const& b) { return a.first < b.first; });
    Spans all;
    for (Span const& span : spans)
        if (!all.empty() && span.first <= all.back().last + 1)
            all.back().last = std::max(all.back().last, span.last);
        else
            all.push_back(span);
    return all;
}

Spans columnsOf(TableWindow::Ranges const& ranges)
{
    Spans spans;
    for (CellRange const& range : ranges)
        spans.push_back({range.first.column, range.last.column});
    return merged(std::move(spans));
}

std::vector<Band> bandsOf(TableWindow::Ranges const& ranges)
{
    std::set<Number> borders;
    for (CellRange const& range : ranges)
        borders.insert({range.first.row, range.last.row + 1});
    std::vector<Band> bands;
    for (auto border = borders.begin(); std::next(border) != borders.end(); ++border) {
        TableWindow::Ranges here;
        std::copy_if(ranges.begin(), ranges.end(), std::back_inserter(here),
                     [&](CellRange const& range) { return range.first.row <= *border && *border <= range.last.row; });
        if (!here.empty())
            bands.push_back({{*border, *std::next(border) - 1}, columnsOf(here)});
    }
    return bands;
}

Number rowsOf(std::vector<Band> const& bands)
{
    return std::accumulate(bands.begin(), bands.end(), Number{0},
                           [](Number sum, Band const& band) { return sum + countOf({band.rows}); });
}

Number cellsOf(std::vector<Band> const& bands)
{
    return std::accumulate(bands.begin(), bands.end(), Number{0}, [](Number sum, Band const& band) {
        return sum + countOf({band.rows}) * countOf(band.columns);
    });
}

// The cells of a row, those between them that are not selected empty.
QString rowText(Number row, Spans const& selected, Spans const& columns, SelectionText::CellText const& cellText)
{
    QString text;
    auto next = selected.begin();
    for (Span const& span : columns)
        for (Number column = span.first; column <= span.last; ++column) {
            if (column > columns.front().first)
                text += QLatin1Char('\t');
            while (next != selected.end() && next->last < column)
                ++next;
            if (next != selected.end() && next->first <= column)
                text += QString::fromStdString(cellText(ModelIndex(row, column)));
        }
    return text;
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
    std::vector<Band> const bands = bandsOf(ranges);
    if (cellsOf(bands) > mostCells) {
        VelUtilDialogErrMsg("Too many cells are selected: no more than 1000000 can be copied.");
        return QString();
    }
    Spans const columns = columnsOf(ranges);
    if (rowsOf(bands) * countOf(columns) > mostPlaces) {
        VelUtilDialogErrMsg("The selected cells are in too many rows and columns to be copied at once.");
        return QString();
    }
    WaitState const busy;
    QString text = QStringLiteral("");
    for (Band const& band : bands)
        for (Number row = band.rows.first; row <= band.rows.last; ++row) {
            if (row > bands.front().rows.first)
                text += QLatin1Char('\n');
            text += rowText(row, band.columns, columns, cellText);
        }
    return text;
}

} // namespace veldraw::sdk::ui::propertymanager

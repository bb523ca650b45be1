#include "dialogs/spreadsheet/CellRange.h"

#include <algorithm>

namespace veldraw::sdk::ui::propertymanager {

CellRange CellRange::between(Cell const& one, Cell const& other)
{
    return CellRange{one, one}.unitedWith(CellRange{other, other});
}

bool CellRange::contains(Cell const& cell) const
{
    return first.row <= cell.row && cell.row <= last.row && first.column <= cell.column && cell.column <= last.column;
}

std::vector<CellRange> CellRange::inside(CellRange const& other) const
{
    CellRange const common{Cell(std::max(first.row, other.first.row), std::max(first.column, other.first.column)),
                           Cell(std::min(last.row, other.last.row), std::min(last.column, other.last.column))};
    bool const isSome = common.first.row <= common.last.row && common.first.column <= common.last.column;
    return isSome ? std::vector<CellRange>{common} : std::vector<CellRange>();
}

// Above and below over the whole width, then what is left of it to the left and to the right.
std::vector<CellRange> CellRange::outside(CellRange const& other) const
{
    std::vector<CellRange> const common = inside(other);
    if (common.empty())
        return {*this};
    CellRange const& hole = common.front();
    std::vector<CellRange> parts;
    if (first.row < hole.first.row)
        parts.push_back(CellRange{first, Cell(hole.first.row - 1, last.column)});
    if (hole.last.row < last.row)
        parts.push_back(CellRange{Cell(hole.last.row + 1, first.column), last});
    if (first.column < hole.first.column)
        parts.push_back(CellRange{Cell(hole.first.row, first.column), Cell(hole.last.row, hole.first.column - 1)});
    if (hole.last.column < last.column)
        parts.push_back(CellRange{Cell(hole.first.row, hole.last.column + 1), Cell(hole.last.row, last.column)});
    return parts;
}

CellRange CellRange::unitedWith(CellRange const& other) const
{
    return CellRange{Cell(std::min(first.row, other.first.row), std::min(first.column, other.first.column)),
                     Cell(std::max(last.row, other.last.row), std::max(last.column, other.last.column))};
}

} // namespace veldraw::sdk::ui::propertymanager

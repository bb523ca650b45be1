#include "dialogs/spreadsheet/CellRange.h"

#include <gtest/gtest.h>

namespace veldraw::tests {
namespace {

using sdk::ui::propertymanager::CellRange;
using Cell = CellRange::Cell;

// All pairs of rectangles in a table of a few cells, cell by cell.
template <typename Check>
void forAllPairs(Check const& check)
{
    std::vector<CellRange> all;
    for (unsigned cell = 0; cell < 12; ++cell)
        for (unsigned other = cell; other < 12; ++other)
            all.push_back(CellRange::between(Cell(cell / 4, cell % 4), Cell(other / 4, other % 4)));
    for (CellRange const& one : all)
        for (CellRange const& other : all)
            check(one, other);
}

int countIn(std::vector<CellRange> const& ranges, Cell const& cell)
{
    int count = 0;
    for (CellRange const& range : ranges)
        count += range.contains(cell);
    return count;
}

TEST(CellRange, IsCutInPartsThatHaveEachCellOnce)
{
    forAllPairs([](CellRange const& one, CellRange const& other) {
        for (unsigned cell = 0; cell < 12; ++cell) {
            Cell const here(cell / 4, cell % 4);
            bool const isBoth = one.contains(here) && other.contains(here);
            EXPECT_EQ(countIn(one.inside(other), here), isBoth);
            EXPECT_EQ(countIn(one.outside(other), here), one.contains(here) && !isBoth);
        }
    });
}

TEST(CellRange, IsUnitedInTheSmallestRectangle)
{
    CellRange const united =
        CellRange::between(Cell(5, 1), Cell(2, 3)).unitedWith(CellRange::between(Cell(9, 0), Cell(9, 0)));
    EXPECT_EQ(united.first.row, 2u);
    EXPECT_EQ(united.first.column, 0u);
    EXPECT_EQ(united.last.row, 9u);
    EXPECT_EQ(united.last.column, 3u);
}

} // namespace
} // namespace veldraw::tests

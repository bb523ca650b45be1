#include "app/plot/IndexCut.h"

#include "tests/app/plot/CutMeasure.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace veldraw::tests {

namespace {

using kernel::Cut;
using kernel::CutKind;

double first(CutMeasure::Point const& p)
{
    return p[0];
}

kernel::Zone ordered(std::int64_t i, std::int64_t j, std::int64_t k)
{
    return {"zone", ZoneType_Ordered, i, j, k};
}

} // namespace

TEST(IndexCut, HasThePointsOfItsIndexAndTheCellsBehindThem)
{
    auto const dataSet = grids::ordered(20, 30, 40, first);
    std::int64_t const counts[] = {20, 30, 40};
    std::int64_t const steps[] = {1, 20, 600};
    for (int axis = 0; axis < 3; ++axis)
        for (std::int64_t const index : {std::int64_t{1}, std::int64_t{7}, counts[axis]}) {
            CutMeasure const sheet(*dataSet, cutAt(static_cast<CutKind>(axis + 3), static_cast<double>(index)));
            ASSERT_EQ(sheet.pointCount(), 24000 / counts[axis]);
            EXPECT_NEAR(sheet.area(), 1.0, 1e-12);
            for (std::int64_t n = 0; n < sheet.pointCount(); ++n) {
                std::int64_t const point = sheet.geometry().points()[static_cast<std::size_t>(n)];
                ASSERT_EQ(point / steps[axis] % counts[axis], index - 1);
            }
            std::int64_t const layer = index == counts[axis] ? index - 2 : index - 1;
            for (std::int64_t const slot : sheet.geometry().cells())
                ASSERT_EQ(slot / steps[axis] % counts[axis], layer);
        }
}

TEST(IndexCut, EachCellIsAtTheLowestCornerOfWhatIsDrawn)
{
    auto const dataSet = grids::ordered(5, 4, 3, first);
    CutMeasure const sheet(*dataSet, cutAt(CutKind::J, 2));
    ASSERT_EQ(sheet.cellCount(), 4 * 2);
    for (std::int64_t cell = 0; cell < sheet.cellCount(); ++cell)
        EXPECT_EQ(sheet.geometry().points()[static_cast<std::size_t>(sheet.cornersOf(cell).front())],
                  sheet.geometry().cells()[static_cast<std::size_t>(cell)]);
}

TEST(IndexCut, IsRoundedAndMayBeBesideTheZone)
{
    kernel::Zone const zone = ordered(4, 5, 6);
    EXPECT_EQ(app::IndexCut::create(zone, 0, 2.4).points.front(), 1);
    EXPECT_EQ(app::IndexCut::create(zone, 0, 2.6).points.front(), 2);
    double const nan = std::numeric_limits<double>::quiet_NaN();
    for (double const beside : {0.0, 0.4, 4.6, 5.0, -3.0, 1e300, -1e300, nan})
        EXPECT_EQ(app::IndexCut::create(zone, 0, beside).cellCount(), 0) << beside;
}

TEST(IndexCut, ASheetGivesALine)
{
    auto const sheet = grids::ordered(9, 1, 6, first);
    EXPECT_NEAR(CutMeasure(*sheet, cutAt(CutKind::I, 4)).length(), 1.0, 1e-12);
    EXPECT_NEAR(CutMeasure(*sheet, cutAt(CutKind::K, 6)).length(), 1.0, 1e-12);
    EXPECT_NEAR(CutMeasure(*sheet, cutAt(CutKind::J, 1)).area(), 1.0, 1e-12) << "the sheet itself";
}

TEST(IndexCut, CellsThatAreHiddenOnBothSidesAreLeftOut)
{
    auto const dataSet = grids::ordered(4, 4, 4, first);
    grids::hideCells(*dataSet, {4, 13}); // in the middle of the first and of the second layer
    CutMeasure const between(*dataSet, cutAt(CutKind::K, 2));
    EXPECT_EQ(between.cellCount(), 8);
    CutMeasure const behind(*dataSet, cutAt(CutKind::K, 3));
    EXPECT_EQ(behind.cellCount(), 9);
    CutMeasure const border(*dataSet, cutAt(CutKind::K, 1));
    EXPECT_EQ(border.cellCount(), 8);
}

TEST(IndexCut, ElementsHaveNoIndices)
{
    auto const bricks = grids::elements(ZoneType_FEBrick, 3, first);
    EXPECT_EQ(CutMeasure(*bricks, cutAt(CutKind::I, 1)).cellCount(), 0);
}

} // namespace veldraw::tests

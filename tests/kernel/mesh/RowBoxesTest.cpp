#include "kernel/mesh/RowBoxes.h"

#include "tests/kernel/support/SampleData.h"
#include "tests/support/SpecialNumbers.h"

#include <cstring>
#include <gtest/gtest.h>
#include <random>

namespace veldraw::tests {

using namespace kernel;

namespace {

/// Coordinates without any order, some of which are not finite.
ZoneCells wildCells(std::array<std::int64_t, 3> const& points, FieldDataType_e type)
{
    std::mt19937 random(7);
    ZoneCells::Coordinates coordinates;
    for (auto& buffer : coordinates) {
        std::vector<double> numbers;
        for (std::int64_t at = 0; at < points[0] * points[1] * points[2]; ++at) {
            bool const isNowhere = type != FieldDataType_Int32 && random() % 50 == 0;
            numbers.push_back(isNowhere ? notANumber : static_cast<double>(random() % 100000));
        }
        buffer = sample::field(numbers, type).group()->buffer();
    }
    return ZoneCells(ZoneType_Ordered, ZoneDimensions{points[0], points[1], points[2], nullptr}, coordinates);
}

void expectTheCornersAndTheirBoxes(ZoneCells const& cells, std::int64_t step)
{
    RowBoxes boxes(cells);
    int found = 0;
    for (std::int64_t slot = 0; slot < cells.slotCount(); slot += step) {
        ZoneCells::Corners room;
        Cell const cell = cells.cell(slot, room);
        ASSERT_EQ(boxes.has(slot) || boxes.read(slot), cell.cornerCount > 0) << slot;
        if (cell.cornerCount == 0) {
            continue;
        }
        std::array<Point, 8> corners{};
        boxes.corners(slot, corners.data());
        for (std::size_t corner = 0; corner < cell.cornerCount; ++corner) {
            Point const expected = cells.point(cell.corners[corner]);
            ASSERT_EQ(std::memcmp(&corners[corner], &expected, sizeof expected), 0) << slot << ' ' << corner;
        }
        std::optional<Box> const wanted = cells.box(cell.corners, cell.cornerCount);
        std::optional<Box> const box = boxes.box(slot);
        ASSERT_EQ(box.has_value(), wanted.has_value()) << slot;
        if (box) {
            ASSERT_EQ(box->low, wanted->low) << slot;
            ASSERT_EQ(box->high, wanted->high) << slot;
            ++found;
        }
    }
    EXPECT_GT(found, 100 / step);
}

} // namespace

TEST(RowBoxes, AreThoseOfTheCornersOfEachCell)
{
    for (auto const& points :
         {std::array<std::int64_t, 3>{150, 5, 4}, {66, 9, 7}, {2, 30, 20}, {1, 200, 3}, {300, 2, 1}, {70, 1, 9}}) {
        for (FieldDataType_e const type : {FieldDataType_Double, FieldDataType_Float, FieldDataType_Int32}) {
            SCOPED_TRACE(testing::PrintToString(points) + " type " + std::to_string(type));
            expectTheCornersAndTheirBoxes(wildCells(points, type), 1);
            expectTheCornersAndTheirBoxes(wildCells(points, type), 3); // as cells are left out
        }
    }
}

TEST(RowBoxes, AreWidenedByAPartOfTheSumOfTheirSides)
{
    ZoneCells const cells = wildCells({40, 5, 3}, FieldDataType_Int32);
    for (std::size_t const axes : {2U, 3U}) {
        RowBoxes boxes(cells);
        ASSERT_TRUE(boxes.read(0));
        ASSERT_EQ(boxes.count(), 39U);
        RowBoxes widened(cells);
        ASSERT_TRUE(widened.read(0));
        widened.widen(axes, 0.25);
        for (std::int64_t slot = 0; slot < 39; ++slot) {
            Box const box = *boxes.box(slot);
            Box const wide = *widened.box(slot);
            double const margin =
                ((box.high[0] - box.low[0]) + (box.high[1] - box.low[1]) + (box.high[2] - box.low[2])) / 4;
            for (std::size_t axis = 0; axis < 3; ++axis) {
                double const own = axis < axes ? margin : 0.0;
                EXPECT_DOUBLE_EQ(wide.low[axis], box.low[axis] - own);
                EXPECT_DOUBLE_EQ(wide.high[axis], box.high[axis] + own);
            }
        }
    }
}

TEST(RowBoxes, AreNoneWithoutCells)
{
    for (auto const& points : {std::array<std::int64_t, 3>{9, 1, 1}, {1, 1, 1}, {1, 9, 1}}) {
        ZoneCells const cells = wildCells(points, FieldDataType_Double);
        EXPECT_FALSE(RowBoxes(cells).has(0));
        EXPECT_FALSE(RowBoxes(cells).read(0));
    }
}

} // namespace veldraw::tests

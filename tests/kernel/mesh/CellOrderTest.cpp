#include "kernel/mesh/CellOrder.h"

#include "tests/kernel/support/MeshData.h"
#include "tests/support/SpecialNumbers.h"

#include <gtest/gtest.h>
#include <numeric>

namespace veldraw::tests {

using namespace kernel;
using Shape = Connectivity::Shape;

namespace {

Box const boxOfCells{{0, 0, 0}, {13, 13, 13}};

} // namespace

TEST(CellOrder, BringsEachCellOnceAndNeighboursSoonAfterEachOther)
{
    auto lists = sample::fillOf(Shape::Tetrahedron, 13, 0.2, 1);
    lists.shuffle(2);
    auto const zone = lists.zone(ZoneType_FETetra);
    ZoneCells const cells = sample::cellsOf(*zone);
    Progress progress;
    CellOrder const order(cells, boxOfCells, progress);
    EXPECT_EQ(progress.done(), progress.total());
    std::vector<std::int64_t> slots;
    double length = 0; // of the way from cell to cell
    for (std::int64_t place = 0; place < cells.slotCount(); ++place) {
        slots.push_back(order.slot(place));
        ZoneCells::Corners room;
        Point const here = cells.point(cells.cell(slots.back(), room).corners[0]);
        Point const before = cells.point(cells.cell(slots[slots.size() > 1 ? slots.size() - 2 : 0], room).corners[0]);
        length += std::abs(here[0] - before[0]) + std::abs(here[1] - before[1]) + std::abs(here[2] - before[2]);
    }
    EXPECT_LT(length / static_cast<double>(cells.slotCount()), 1.5); // a random way is some 13 long
    std::sort(slots.begin(), slots.end());
    std::vector<std::int64_t> every(slots.size());
    std::iota(every.begin(), every.end(), 0);
    EXPECT_EQ(slots, every);
}

TEST(CellOrder, LeavesOrderedAndSmallZonesAsTheyAre)
{
    auto const small = sample::fillOf(Shape::Brick, 13, 0, 0).zone(ZoneType_FEBrick);
    auto const ordered = sample::orderedFill(25, 25, 25, 0, 0);
    for (auto const& zone : {small, ordered}) {
        ZoneCells const cells = sample::cellsOf(*zone);
        Progress progress;
        CellOrder const order(cells, boxOfCells, progress);
        for (std::int64_t place = 0; place < cells.slotCount(); ++place) {
            ASSERT_EQ(order.slot(place), place);
        }
    }
}

TEST(CellOrder, TakesCellsThatAreNowhere)
{
    auto lists = sample::fillOf(Shape::Tetrahedron, 13, 0, 0);
    for (std::size_t at = 0; at < lists.points.size(); at += 3) {
        lists.points[at][at % 3] = notANumber;
    }
    auto const zone = lists.zone(ZoneType_FETetra);
    for (Box const& place : {boxOfCells, Box{{5, 5, 5}, {5, 5, 5}}, Box()}) {
        Progress progress;
        CellOrder const order(sample::cellsOf(*zone), place, progress);
        std::vector<int> times(lists.shapes.size());
        for (std::size_t at = 0; at < times.size(); ++at) {
            ++times[static_cast<std::size_t>(order.slot(static_cast<std::int64_t>(at)))];
        }
        EXPECT_EQ(std::count(times.begin(), times.end(), 1), static_cast<std::ptrdiff_t>(times.size()));
    }
}

} // namespace veldraw::tests

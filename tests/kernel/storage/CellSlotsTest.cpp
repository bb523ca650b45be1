#include "kernel/storage/CellSlots.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <set>
#include <vector>

namespace veldraw::tests {

using namespace kernel;
using testing::ElementsAre;

namespace {

using Index = std::int64_t;
using Points = std::vector<Index>;

Points pointsOf(CellCorners const& corners, Index slot)
{
    Points points;
    for (std::size_t corner = 0; corner < corners.count(); ++corner) {
        points.push_back(corners.point(slot, corner));
    }
    return points;
}

/// The points that are at most one step from the first corner along each dimension, of all points of the zone.
Points pointsBeside(Index slot, Index i, Index j, Index k)
{
    auto const isNext = [](Index from, Index to) { return to == from || to == from + 1; };
    Points points;
    for (Index point = 0; point < i * j * k; ++point) {
        if (isNext(slot % i, point % i) && isNext(slot / i % j, point / i % j) && isNext(slot / i / j, point / i / j)) {
            points.push_back(point);
        }
    }
    return points;
}

} // namespace

TEST(CellSlots, HaveOneCellAlongADimensionWithOnePointAndNoneWithoutPoints)
{
    EXPECT_EQ(cellsAlong(0), 0);
    EXPECT_EQ(cellsAlong(1), 1);
    EXPECT_EQ(cellsAlong(2), 1);
    EXPECT_EQ(cellsAlong(5), 4);
}

TEST(CellSlots, NumberTheCornersAlongIBeforeThoseAlongJAndK)
{
    EXPECT_THAT(pointsOf(CellCorners(4, 3, 2), 1), ElementsAre(1, 2, 5, 6, 13, 14, 17, 18));
    EXPECT_THAT(pointsOf(CellCorners(4, 1, 2), 1), ElementsAre(1, 2, 5, 6));
    EXPECT_THAT(pointsOf(CellCorners(1, 3, 1), 1), ElementsAre(1, 2));
    EXPECT_THAT(pointsOf(CellCorners(1, 1, 1), 0), ElementsAre(0));
}

TEST(CellSlots, AreThoseOfTheCellsInAllShapesOfZones)
{
    for (Index size = 0; size < 64; ++size) {
        Index const i = size % 4;
        Index const j = size / 4 % 4;
        Index const k = size / 16;
        std::vector<Index> visited;
        forOrderedCells(i, j, k, [&](Index slot, Index const* points, std::size_t count) {
            visited.push_back(slot);
            EXPECT_EQ(Points(points, points + count), pointsBeside(slot, i, j, k)) << i << ' ' << j << ' ' << k;
        });
        EXPECT_TRUE(std::is_sorted(visited.begin(), visited.end()));
        std::set<Index> const cells(visited.begin(), visited.end());
        for (Index slot = 0; slot < i * j * k; ++slot) {
            EXPECT_EQ(hasCell(slot, i, j, k), cells.count(slot) > 0) << slot << " of " << i << ' ' << j << ' ' << k;
        }
        EXPECT_EQ(visited.size(), cells.size());
        EXPECT_EQ(visited.size(), static_cast<std::size_t>(cellsAlong(i) * cellsAlong(j) * cellsAlong(k)));
    }
}

} // namespace veldraw::tests

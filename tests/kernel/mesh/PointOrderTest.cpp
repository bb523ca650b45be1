#include "kernel/mesh/PointOrder.h"

#include "tests/kernel/support/LookCounter.h"
#include "tests/kernel/support/MeshData.h"

#include <gtest/gtest.h>
#include <numeric>
#include <random>

namespace veldraw::tests {

using namespace kernel;
using Shape = Connectivity::Shape;

namespace {

constexpr std::int64_t manyPoints = 100000; // more than are left as they are whatever the cells

/// A strip of triangles over points in the order of @p numbers.
std::shared_ptr<Zone> strip(std::vector<std::int64_t> const& numbers)
{
    sample::CellLists lists;
    lists.points.resize(numbers.size());
    for (std::size_t at = 0; at + 2 < numbers.size(); ++at) {
        lists.add(Shape::Triangle, {numbers[at], numbers[at + 1], numbers[at + 2]});
    }
    return lists.zone(ZoneType_FETriangle);
}

std::vector<std::int64_t> inTheirOrder(std::int64_t count)
{
    std::vector<std::int64_t> numbers(static_cast<std::size_t>(count));
    std::iota(numbers.begin(), numbers.end(), 0);
    return numbers;
}

} // namespace

TEST(PointOrder, IsLeftAsItIsWhereCornersAreNear)
{
    auto const zone = strip(inTheirOrder(manyPoints));
    CellParts const cells(zone->type, *zone->connectivity);
    LookCounter counter;
    PointOrder const order(cells, manyPoints, RoomBeside(0), counter);
    EXPECT_TRUE(order.isNatural());
    EXPECT_EQ(order.placeOf(77), 77U);
    EXPECT_GE(counter.looks(), 3 * 65536 / 512) << "a cancel is looked for while cells are looked at";
}

TEST(PointOrder, IsThatInWhichCellsNamePointsWhereCornersAreFarApart)
{
    std::vector<std::int64_t> numbers = inTheirOrder(manyPoints);
    std::shuffle(numbers.begin(), numbers.end(), std::mt19937(5));
    auto const zone = strip(numbers);
    CellParts const cells(zone->type, *zone->connectivity);
    Progress const progress;
    RoomBeside const room(0);
    PointOrder const order(cells, manyPoints, room, progress);
    ASSERT_FALSE(order.isNatural());
    ZeroedArray<std::uint32_t> const points = order.points(room, progress);
    for (std::size_t place = 0; place < numbers.size(); ++place) {
        ASSERT_EQ(order.placeOf(numbers[place]), place);
        ASSERT_EQ(points[place], numbers[place]);
    }
}

} // namespace veldraw::tests

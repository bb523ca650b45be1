#include "kernel/mesh/PointMeans.h"

#include "tests/kernel/support/MeshData.h"
#include "tests/kernel/support/SampleData.h"

#include <cmath>
#include <gmock/gmock.h>
#include <limits>

namespace veldraw::tests {

using namespace kernel;
using testing::ElementsAre;

namespace {

std::vector<double> meansOf(Zone const& zone, std::vector<double> const& values,
                            FieldDataType_e type = FieldDataType_Double)
{
    auto const buffer = sample::bufferOf(sample::field(values, type));
    Progress const progress;
    auto const means =
        meansAtPoints(zone.type, {zone.i, zone.j, zone.k, zone.connectivity, zone.blanking}, *buffer, progress);
    std::vector<double> result;
    for (std::int64_t point = 0; point < means->size(); ++point) {
        result.push_back(means->value(point));
    }
    return result;
}

} // namespace

TEST(PointMeans, AreThoseOfTheCellsAtEachPointOfAnOrderedZone)
{
    Zone const line("line", ZoneType_Ordered, 1, 4, 1);
    EXPECT_THAT(meansOf(line, {1, 3, 8, -99}), ElementsAre(1, 2, 5.5, 8));
    Zone const plane("plane", ZoneType_Ordered, 3, 1, 3);
    EXPECT_THAT(meansOf(plane, {1, 2, -99, 5, 10, -99, -99, -99, -99}), ElementsAre(1, 1.5, 2, 3, 4.5, 6, 5, 7.5, 10));
    Zone const point("point", ZoneType_Ordered, 1, 1, 1);
    EXPECT_THAT(meansOf(point, {4}), ElementsAre(4));
    Zone const cube("cube", ZoneType_Ordered, 2, 2, 3);
    EXPECT_THAT(meansOf(cube, {2, -9, -9, -9, 6, -9, -9, -9, -9, -9, -9, -9}),
                ElementsAre(2, 2, 2, 2, 4, 4, 4, 4, 6, 6, 6, 6));
}

TEST(PointMeans, AreThoseOfTheListedCellsAtEachPoint)
{
    sample::CellLists lists = sample::mixedFill(3, 0.1, 2);
    lists.shuffle(7);
    auto const zone = lists.zone(ZoneType_FEMixed);
    std::vector<double> values;
    std::vector<double> sums(lists.points.size());
    std::vector<double> counts(lists.points.size());
    for (std::size_t cell = 0; cell + 1 < lists.offsets.size(); ++cell) {
        values.push_back(static_cast<double>(cell % 17));
        for (auto at = lists.offsets[cell]; at < lists.offsets[cell + 1]; ++at) {
            auto const point = static_cast<std::size_t>(lists.indices[static_cast<std::size_t>(at)]);
            sums[point] += values.back();
            ++counts[point];
        }
    }
    std::vector<double> const found = meansOf(*zone, values);
    for (std::size_t point = 0; point < sums.size(); ++point) {
        EXPECT_DOUBLE_EQ(found[point], sums[point] / counts[point]);
    }
}

TEST(PointMeans, CountACollapsedCellOnceAtEachPoint)
{
    sample::CellLists lists;
    lists.points = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {2, 0, 0}, {2, 1, 0}, {1, 2, 0}};
    lists.add(Connectivity::Shape::Quad, {0, 1, 2, 2});
    lists.add(Connectivity::Shape::Quad, {2, 3, 4, 5});
    EXPECT_THAT(meansOf(*lists.zone(ZoneType_FEQuad), {10, 1}), ElementsAre(10, 10, 5.5, 1, 1, 1));
}

TEST(PointMeans, LeaveOutWhatIsNoNumber)
{
    Zone const line("line", ZoneType_Ordered, 4, 1, 1);
    double const nan = std::numeric_limits<double>::quiet_NaN();
    double const endless = std::numeric_limits<double>::infinity();
    EXPECT_THAT(meansOf(line, {1, nan, 8, -99}), ElementsAre(1, 1, 8, 8));
    std::vector<double> const found = meansOf(line, {nan, endless, 8, -99});
    EXPECT_TRUE(std::isnan(found[0]) && std::isnan(found[1]));
    EXPECT_EQ(found[2], 8);
}

TEST(PointMeans, LeaveHiddenCellsOutAndPointsWithoutACellWithoutANumber)
{
    Zone zone("line", ZoneType_Ordered, 4, 1, 1);
    auto const marks =
        sample::bufferOf(sample::field({0, Blanking::hiddenCell, Blanking::hiddenCell}, FieldDataType_Byte));
    zone.blanking = std::make_shared<Blanking>(zone, Blanking::Marks{nullptr, marks});
    std::vector<double> const found = meansOf(zone, {1, 3, 8, -99});
    EXPECT_EQ(found[0], 1);
    EXPECT_EQ(found[1], 1);
    EXPECT_TRUE(std::isnan(found[2]));
    EXPECT_TRUE(std::isnan(found[3]));
}

TEST(PointMeans, OfWholeNumbersNeedNotBeWholeNumbers)
{
    Zone const line("line", ZoneType_Ordered, 3, 1, 1);
    EXPECT_THAT(meansOf(line, {1, 2, 0}, FieldDataType_Int16), ElementsAre(1, 1.5, 2));
}

} // namespace veldraw::tests

#include "app/plot/ColourMap.h"
#include "app/plot/FiniteElementShape.h"
#include "app/plot/OrderedShape.h"
#include "app/plot/PlotSpace.h"
#include "tests/app/support/SampleData.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <set>

namespace veldraw::tests {

namespace {

kernel::Zone ordered(std::int64_t i, std::int64_t j, std::int64_t k)
{
    return {"zone", ZoneType_Ordered, i, j, k};
}

double lightness(double const* rgb)
{
    auto const linear = [](double c) { return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4); };
    double const y = 0.2126 * linear(rgb[0]) + 0.7152 * linear(rgb[1]) + 0.0722 * linear(rgb[2]);
    return 116.0 * std::cbrt(y) - 16.0;
}

} // namespace

TEST(OrderedShape, TakesTheSixFacesOfAVolume)
{
    auto const shape = app::OrderedShape::create(ordered(5, 4, 3), false);
    EXPECT_EQ(shape.cellCount(), 2 * (4 * 3 + 4 * 2 + 3 * 2));
    EXPECT_EQ(shape.pointCount, 2 * (5 * 4 + 5 * 3 + 4 * 3));
    std::set<std::int64_t> const points(shape.points.begin(), shape.points.end());
    EXPECT_EQ(points.size(), 5U * 4 * 3 - 3 * 2 * 1) << "every outer point and none of the inside";
}

TEST(OrderedShape, AddressesCellsOfTheLastFacesInTheLastLayerOfCells)
{
    auto const shape = app::OrderedShape::create(ordered(3, 3, 3), false);
    EXPECT_EQ(*std::max_element(shape.cells.begin(), shape.cells.end()), 1 + 3 * 1 + 9 * 1);
}

TEST(OrderedShape, TakesASheetWhateverItsDirections)
{
    for (auto const& zone : {ordered(5, 4, 1), ordered(5, 1, 4), ordered(1, 5, 4)}) {
        auto const shape = app::OrderedShape::create(zone, false);
        EXPECT_EQ(shape.cellCount(), 12);
        EXPECT_EQ(shape.pointCount, 20);
        for (std::int64_t n = 0; n < 20; ++n)
            EXPECT_EQ(shape.pointOf(n), n);
        EXPECT_EQ(shape.cellOf(11), 3 + 5 * 2);
    }
}

TEST(OrderedShape, TakesALineOrItsPoints)
{
    EXPECT_EQ(app::OrderedShape::create(ordered(1, 7, 1), false).lines->GetNumberOfCells(), 6);
    EXPECT_EQ(app::OrderedShape::create(ordered(7, 1, 1), true).vertices->GetNumberOfCells(), 7);
    EXPECT_EQ(app::OrderedShape::create(ordered(1, 1, 1), false).vertices->GetNumberOfCells(), 1);
    EXPECT_EQ(app::OrderedShape::create(ordered(0, 0, 0), false).cellCount(), 0);
}

TEST(FiniteElementShape, AdoptsTheConnectivityOfSurfaceCells)
{
    auto const set = SampleData::triangles(3);
    auto const shape = app::FiniteElementShape::create(*set->zone(1));
    EXPECT_EQ(shape.cellCount(), set->zone(1)->cellCount());
    EXPECT_EQ(shape.polygons->GetConnectivityArray()->GetVoidPointer(0),
              static_cast<void const*>(set->zone(1)->connectivity->indices));
}

TEST(FiniteElementShape, NamesTheCellsBehindTheOuterFaces)
{
    auto const set = SampleData::bricks(3);
    auto const shape = app::FiniteElementShape::create(*set->zone(1));
    EXPECT_EQ(shape.cellCount(), 54);
    std::set<std::int64_t> const cells(shape.cells.begin(), shape.cells.end());
    EXPECT_EQ(cells.size(), 26U) << "all but the one in the middle";
    EXPECT_EQ(cells.count(13), 0U);
}

TEST(FiniteElementShape, TakesTheFacesOfAPolyhedron)
{
    auto const set = SampleData::prism();
    auto const shape = app::FiniteElementShape::create(*set->zone(1));
    EXPECT_EQ(shape.polygons->GetNumberOfCells(), 5);
    EXPECT_EQ(shape.polygons->GetMaxCellSize(), 4);
}

TEST(FiniteElementShape, DrawsNothingOfAPolyhedronWithFacesThatLeadAstray)
{
    auto const set = SampleData::prism();
    set->zone(1)->i = 5;
    EXPECT_EQ(app::FiniteElementShape::create(*set->zone(1)).cellCount(), 0);
}

TEST(FiniteElementShape, TakesSurfaceCellsAndOuterFacesOfAMixedZone)
{
    auto const shape = app::FiniteElementShape::create(*SampleData::mixed()->zone(1));
    EXPECT_EQ(shape.polygons->GetNumberOfCells(), 4 + 1) << "four faces of the tetrahedron and the triangle";
    EXPECT_EQ(std::count(shape.cells.begin(), shape.cells.end(), 0), 4);
    EXPECT_EQ(std::count(shape.cells.begin(), shape.cells.end(), 1), 1);
}

TEST(FiniteElementShape, DrawsNothingOfAZoneWithoutCells)
{
    auto const set = SampleData::triangles(2);
    set->zone(1)->connectivity.reset();
    EXPECT_EQ(app::FiniteElementShape::create(*set->zone(1)).cellCount(), 0);
}

TEST(PlotSpace, MapsThereAndBackAtAnyScale)
{
    app::PlotSpace const space({1e6, -3e-9, 0.0}, {1e6 + 1e-3, 5e-9, 0.0}, true);
    EXPECT_NEAR(space.toScene(0, 1e6 + 5e-4), 0.0, 1e-6);
    EXPECT_NEAR(space.toValue(0, space.toScene(0, 1e6 + 2e-4)), 1e6 + 2e-4, 1e-9);
    EXPECT_NEAR(space.toScene(1, 5e-9), 0.5, 1e-9);
    EXPECT_TRUE(space.isStretched());
}

TEST(PlotSpace, KeepsProportionsAndStandsExtremes)
{
    app::PlotSpace const plain({0.0, 0.0, 0.0}, {4.0, 1.0, 0.0}, false);
    EXPECT_DOUBLE_EQ(plain.sceneHalf(0), 0.5);
    EXPECT_DOUBLE_EQ(plain.sceneHalf(1), 0.125);
    EXPECT_FALSE(plain.isStretched());
    EXPECT_DOUBLE_EQ(plain.length(0), 4.0);
    double const huge = std::numeric_limits<double>::max();
    app::PlotSpace const wide({-huge, 0.0, 0.0}, {huge, 0.0, 0.0}, false);
    EXPECT_TRUE(std::isfinite(wide.sceneHalf(0)));
    app::PlotSpace const point({2.0, 2.0, 2.0}, {2.0, 2.0, 2.0}, true);
    EXPECT_DOUBLE_EQ(point.sceneHalf(0), 0.0);
}

TEST(ColourMap, GetsLighterInEvenSteps)
{
    auto const map = app::ColourMap::create(0.0, 1.0);
    double last = -1.0;
    for (int step = 0; step <= 16; ++step) {
        double rgb[3];
        map->GetColor(step / 16.0, rgb);
        double const now = lightness(rgb);
        if (step > 0) {
            EXPECT_GT(now - last, 2.0) << step;
            EXPECT_LT(now - last, 8.0) << step;
        }
        last = now;
    }
}

} // namespace veldraw::tests

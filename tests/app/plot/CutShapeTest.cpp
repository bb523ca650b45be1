// Where cuts lie and what they are made of, against closed forms.
#include "app/plot/CutShape.h"

#include "tests/app/plot/CutMeasure.h"
#include "tests/app/support/SampleData.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <set>

namespace veldraw::tests {

namespace {

using kernel::Cut;
using kernel::CutKind;
using Point = CutMeasure::Point;
using Shape = kernel::Connectivity::Shape;

constexpr double pi = 3.14159265358979323846;

double slope(Point const& p)
{
    return 2.0 * p[0] - p[1] + 3.0 * p[2];
}

double radius(Point const& p)
{
    return std::sqrt(p[0] * p[0] + p[1] * p[1] + p[2] * p[2]);
}

Point bent(Point const& p)
{
    return {1000.0 + p[0] + 0.1 * std::sin(3.0 * p[1]), p[1] + 0.2 * p[2] * p[0], 0.5 * p[2] + 0.1 * p[0] * p[1]};
}

Cut planeThrough(Point const& origin, Point const& normal, double position = 0.0)
{
    Cut cut = cutAt(CutKind::Plane, position);
    cut.origin = origin;
    cut.normal = normal;
    return cut;
}

Cut surfaceOf(kernel::DataSet const& dataSet, double value, int variable = 4)
{
    Cut cut = cutAt(CutKind::IsoSurface, value);
    cut.variable = dataSet.variable(variable)->id;
    return cut;
}

Cut const throughTheCube = planeThrough({0.5, 0.5, 0.5}, {1.0, 1.0, 1.0});
double const hexagon = 0.75 * std::sqrt(3.0);

std::shared_ptr<kernel::DataSet> gridOf(std::string const& name, int n, grids::Formula const& p)
{
    if (name == "ordered")
        return grids::ordered(n + 1, n + 1, n + 1, p);
    if (name == "prisms")
        return grids::mixed(Shape::Prism, n, p);
    if (name == "pyramids")
        return grids::mixed(Shape::Pyramid, n, p);
    return grids::elements(name == "bricks"       ? ZoneType_FEBrick
                           : name == "tetrahedra" ? ZoneType_FETetra
                                                  : ZoneType_FEPolyhedron,
                           n, p);
}

class CutOfCells : public testing::TestWithParam<char const*>
{
};

} // namespace

TEST(CutShape, ASliceOfABentBlockLiesAtItsPositionAndHasTheLinearFunctionOnIt)
{
    auto const dataSet = grids::ordered(40, 50, 60, slope, bent);
    double const positions[] = {1000.43, 0.31, 0.22};
    for (int axis = 0; axis < 3; ++axis) {
        CutMeasure const slice(*dataSet, cutAt(static_cast<CutKind>(axis), positions[axis]));
        ASSERT_GT(slice.pointCount(), 1500) << axis;
        for (std::int64_t n = 0; n < slice.pointCount(); ++n) {
            Point const place = slice.placeOf(n);
            ASSERT_NEAR(place[static_cast<std::size_t>(axis)], positions[axis], 1e-9);
            ASSERT_NEAR(slice.valueAt(n, 4), slope(place), 1e-9);
        }
    }
}

TEST(CutShape, WhatIsDrawnLiesWhereTheValuesSay)
{
    auto const dataSet = grids::ordered(12, 13, 14, slope, bent);
    CutMeasure const slice(*dataSet, planeThrough(bent({0.5, 0.5, 0.5}), {1.0, -2.0, 0.5}));
    ASSERT_GT(slice.pointCount(), 100);
    app::PlotSpace const& space = slice.geometry().key().space;
    for (std::int64_t n = 0; n < slice.pointCount(); ++n) {
        std::array<double, 3> scene{};
        slice.drawing().GetPoint(n, scene.data());
        Point const place = slice.placeOf(n);
        for (int axis = 0; axis < 3; ++axis)
            ASSERT_NEAR(scene[static_cast<std::size_t>(axis)],
                        space.toScene(axis, place[static_cast<std::size_t>(axis)]), 1e-6);
    }
}

TEST(CutShape, AnIsoSphereHasTheAreaOfASphere)
{
    auto const centred = [](Point const& p) { return radius({2 * p[0] - 1, 2 * p[1] - 1, 2 * p[2] - 1}); };
    auto const dataSet = grids::ordered(61, 61, 61, centred);
    CutMeasure const sphere(*dataSet, surfaceOf(*dataSet, 0.7));
    EXPECT_NEAR(sphere.area(), pi * 0.7 * 0.7, 1e-3 * pi * 0.7 * 0.7);
    EXPECT_TRUE(sphere.openSides().empty());
    ASSERT_GT(sphere.pointCount(), 5000);
    for (std::int64_t n = 0; n < sphere.pointCount(); ++n)
        ASSERT_NEAR(sphere.valueAt(n, 4), 0.7, 1e-12);
    EXPECT_TRUE(sphere.geometry().isLit());
}

TEST_P(CutOfCells, AnObliquePlaneCutsAHexagonOutOfTheCube)
{
    auto const dataSet = gridOf(GetParam(), 9, slope);
    CutMeasure const slice(*dataSet, throughTheCube);
    EXPECT_NEAR(slice.area(), hexagon, 1e-12);
    EXPECT_FALSE(slice.geometry().isLit());
    for (std::int64_t n = 0; n < slice.pointCount(); ++n)
        ASSERT_NEAR(slice.valueAt(n, 4), slope(slice.placeOf(n)), 1e-12);
}

TEST_P(CutOfCells, APlaneMovesAlongItsNormal)
{
    auto const dataSet = gridOf(GetParam(), 7, slope);
    double const corner = 0.3; // cuts a triangle with these legs off the cube
    double const way = (3 * corner / 3 - 1.5) / std::sqrt(3.0);
    CutMeasure const slice(*dataSet, planeThrough({0.5, 0.5, 0.5}, {7.0, 7.0, 7.0}, way));
    EXPECT_NEAR(slice.area(), corner * corner * std::sqrt(3.0) / 2.0, 1e-12);
}

TEST_P(CutOfCells, ASliceAlongCellBordersIsThereOnce)
{
    auto const dataSet = gridOf(GetParam(), 8, slope);
    for (double const position : {0.0, 0.125, 0.5, 0.875, 1.0})
        for (CutKind const kind : {CutKind::X, CutKind::Y, CutKind::Z})
            EXPECT_NEAR(CutMeasure(*dataSet, cutAt(kind, position)).area(), 1.0, 1e-12) << position;
    for (double const position : {-1e-9, 1.0 + 1e-9})
        EXPECT_EQ(CutMeasure(*dataSet, cutAt(CutKind::Y, position)).cellCount(), 0) << position;
}

TEST_P(CutOfCells, ASphereHasNoGapsAndItsArea)
{
    auto const centred = [](Point const& p) { return radius({p[0] - 0.5, p[1] - 0.5, p[2] - 0.5}); };
    auto const dataSet = gridOf(GetParam(), 24, centred);
    CutMeasure const sphere(*dataSet, surfaceOf(*dataSet, 0.37));
    EXPECT_TRUE(sphere.openSides().empty());
    EXPECT_NEAR(sphere.area(), 4 * pi * 0.37 * 0.37, 0.01 * 4 * pi * 0.37 * 0.37);
}

TEST_P(CutOfCells, EachPolygonIsInTheCellWhoseValueItShows)
{
    auto const dataSet = gridOf(GetParam(), 5, slope);
    kernel::Zone const& zone = *dataSet->zone(1);
    CutMeasure const slice(*dataSet, throughTheCube);
    ASSERT_GT(slice.cellCount(), 30);
    for (std::int64_t cell = 0; cell < slice.cellCount(); ++cell) {
        std::set<std::int64_t> corners;
        for (std::int64_t const point : slice.cornersOf(cell)) {
            app::ZoneShape::Mix const& mix = slice.geometry().mixes()[static_cast<std::size_t>(point)];
            corners.insert({mix.first, mix.second});
        }
        std::int64_t const slot = slice.geometry().cells()[static_cast<std::size_t>(cell)];
        for (std::int64_t const corner : corners)
            if (zone.isOrdered()) {
                std::int64_t const away = corner - slot;
                EXPECT_TRUE(away % 6 <= 1 && away / 6 % 6 <= 1 && away / 36 <= 1 && away >= 0) << corner;
            } else {
                kernel::Connectivity const& cells = *zone.connectivity;
                EXPECT_NE(
                    std::find(cells.indices + cells.offsets[slot], cells.indices + cells.offsets[slot + 1], corner),
                    cells.indices + cells.offsets[slot + 1]);
            }
    }
}

INSTANTIATE_TEST_SUITE_P(All, CutOfCells,
                         testing::Values("ordered", "bricks", "tetrahedra", "prisms", "pyramids", "polyhedra"),
                         [](auto const& instance) { return std::string(instance.param); });

// Every pattern of sides that a brick can have, those with two diagonal corners on a side of it too.
TEST(CutShape, ASurfaceOfRandomValuesEndsAtTheBorderOfTheGridAlone)
{
    std::mt19937 random(7);
    std::uniform_real_distribution<double> values(-1.0, 1.0);
    auto const dataSet = grids::ordered(22, 21, 20, [&](Point const&) { return values(random); });
    CutMeasure const surface(*dataSet, surfaceOf(*dataSet, 0.0));
    ASSERT_GT(surface.cellCount(), 8000);
    auto const isBorder = [](Point const& p) {
        return p[0] * (1 - p[0]) == 0.0 || p[1] * (1 - p[1]) == 0.0 || p[2] * (1 - p[2]) == 0.0;
    };
    for (auto const& side : surface.openSides())
        for (std::int64_t const point : side)
            ASSERT_TRUE(isBorder(surface.placeOf(point)));
}

TEST(CutShape, HiddenCellsAreLeftOut)
{
    auto const dataSet = grids::ordered(11, 11, 11, slope);
    grids::hideCells(*dataSet, {455, 456, 465}); // in the layer of cells with Z from 0.4 to 0.5
    EXPECT_NEAR(CutMeasure(*dataSet, cutAt(CutKind::Z, 0.43)).area(), 0.97, 1e-12);
    EXPECT_NEAR(CutMeasure(*dataSet, cutAt(CutKind::Z, 0.37)).area(), 1.0, 1e-12);
    EXPECT_EQ(CutMeasure(*dataSet, cutAt(CutKind::K, 5)).cellCount(), 100) << "cells on the other side are seen";
    auto const bricks = grids::elements(ZoneType_FEBrick, 10, slope);
    grids::hideCells(*bricks, {455, 456, 465});
    EXPECT_NEAR(CutMeasure(*bricks, cutAt(CutKind::Z, 0.43)).area(), 0.97, 1e-12);
}

TEST(CutShape, CellsWithoutANumberAtACornerAreLeftOut)
{
    auto const dataSet = grids::ordered(11, 11, 11, [](Point const& p) {
        bool const isGap = std::abs(p[0] - 0.5) < 0.01 && std::abs(p[1] - 0.5) < 0.01 && p[2] > 0.35 && p[2] < 0.45;
        return isGap ? std::numeric_limits<double>::quiet_NaN() : p[2];
    });
    EXPECT_NEAR(CutMeasure(*dataSet, surfaceOf(*dataSet, 0.43)).area(), 0.96, 1e-12);
}

TEST(CutShape, ASheetIsCutToLines)
{
    auto const sheet = grids::ordered(21, 31, 1, slope);
    CutMeasure const slice(*sheet, cutAt(CutKind::X, 0.512));
    EXPECT_NEAR(slice.length(), 1.0, 1e-12);
    EXPECT_EQ(slice.drawing().GetNumberOfPolys(), 0);
    EXPECT_NEAR(CutMeasure(*sheet, planeThrough({0.5, 0.5, 0.0}, {1.0, 1.0, 0.0})).length(), std::sqrt(2.0), 1e-12);
    auto const circles = grids::ordered(81, 1, 81, radius);
    EXPECT_NEAR(CutMeasure(*circles, surfaceOf(*circles, 0.8)).length(), pi / 2 * 0.8, 1e-3);
    EXPECT_EQ(CutMeasure(*circles, cutAt(CutKind::Y, 0.0)).cellCount(), 0) << "it lies in the plane, and is drawn itself";
}

TEST(CutShape, CurvesAndPointsAreNotCut)
{
    for (int const count : {1, 2, 9}) {
        auto const curve = grids::ordered(1, count, 1, slope);
        for (CutKind const kind : {CutKind::X, CutKind::Y, CutKind::I, CutKind::J, CutKind::Plane})
            EXPECT_EQ(CutMeasure(*curve, cutAt(kind, kind < CutKind::I ? 0.3 : 1.0)).cellCount(), 0) << count;
    }
}

TEST(CutShape, AnIsoSurfaceOfValuesAtCellsGoesByTheirMeans)
{
    auto const dataSet = grids::ordered(11, 11, 11, slope);
    std::vector<double> cells(11 * 11 * 11, 1e9);
    for (std::size_t slot = 0; slot < cells.size(); ++slot)
        if (slot % 11 < 10)
            cells[slot] = 0.1 * static_cast<double>(slot % 11) + 0.05;
    dataSet->addVariable(std::make_shared<kernel::Variable>("cells"));
    SampleData::addField(*dataSet->zone(1), cells, ValueLocation_CellCentered, 5);
    CutMeasure const surface(*dataSet, surfaceOf(*dataSet, 0.43, 5));
    EXPECT_NEAR(surface.area(), 1.0, 1e-9);
    for (std::int64_t n = 0; n < surface.pointCount(); ++n)
        ASSERT_NEAR(surface.valueAt(n, 1), 0.43, 1e-9);
}

TEST(CutShape, CellsThatNamePointsThatAreNotThereAreNotCut)
{
    auto const dataSet = grids::elements(ZoneType_FEBrick, 3, slope);
    dataSet->zone(1)->i = 50;
    EXPECT_EQ(app::CutShape::create(*dataSet->zone(1), throughTheCube,
                                    app::CutLevels(*dataSet, 1, {1, 2, 3}, throughTheCube), {})
                  .cellCount(),
              0);
}

TEST(CutShape, ACancelEndsIt)
{
    auto const dataSet = grids::ordered(20, 20, 20, slope);
    kernel::Progress progress;
    progress.interrupt();
    EXPECT_THROW(app::CutShape::create(*dataSet->zone(1), throughTheCube,
                                       app::CutLevels(*dataSet, 1, {1, 2, 3}, throughTheCube), progress),
                 kernel::Interrupted);
}

} // namespace veldraw::tests

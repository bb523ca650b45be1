#include "kernel/mesh/CellSearch.h"

#include "tests/kernel/support/ExactCell.h"
#include "tests/kernel/support/SampleData.h"
#include "tests/support/SpecialNumbers.h"
#include "tests/support/Threads.h"

#include <atomic>
#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <random>

namespace veldraw::tests {

using namespace kernel;
using Shape = Connectivity::Shape;
using testing::ElementsAre;

namespace {

/// A search in some zones, by the number of each point.
struct CellsFound
{
    CellsFound(std::vector<Zone const*> const& zones, std::vector<Point> const& points, int dimensions = 3)
        : bins(sample::placesOf(points, dimensions), dimensions, progress)
        , search(bins)
        , positions(points.size(), bins.size())
    {
        for (Zone const* const zone : zones) {
            Progress part;
            cells.push_back(sample::cellsOf(*zone));
            search.addZone(cells.back(), part);
            EXPECT_EQ(part.done(), part.total());
        }
        for (std::size_t position = 0; position < bins.size(); ++position) {
            positions[static_cast<std::size_t>(bins.slot(position))] = position;
        }
    }

    std::optional<CellSearch::Found> found(std::size_t point) const
    {
        return positions[point] < bins.size() ? search.cellAt(positions[point]) : std::nullopt;
    }

    /// The slot of the cell in which a point is; -1 for none.
    std::int64_t slot(std::size_t point) const
    {
        auto const cell = found(point);
        return cell ? cell->slot : -1;
    }

    std::vector<std::int64_t> slots() const
    {
        std::vector<std::int64_t> numbers;
        for (std::size_t point = 0; point < positions.size(); ++point) {
            numbers.push_back(slot(point));
        }
        return numbers;
    }

    /// What the values at the corners make at the place of a point that was found.
    double value(std::size_t point, std::vector<double> const& values) const
    {
        CellSearch::Found const cell = *found(point);
        ZoneCells::Corners room;
        CellGeometry geometry;
        geometry.read(cells[cell.zone], cells[cell.zone].cell(cell.slot, room));
        std::vector<WeightedPoint> weights;
        geometry.weigh(*geometry.locate(bins.point(positions[point])), weights);
        double sum = 0;
        for (WeightedPoint const& corner : weights) {
            sum += corner.weight * values[static_cast<std::size_t>(corner.point)];
        }
        return sum;
    }

    Progress progress;
    PointBins bins;
    CellSearch search;
    std::vector<ZoneCells> cells;
    std::vector<std::size_t> positions;
};

std::vector<Point> somePoints(std::size_t count, double low, double high, bool isFlat, unsigned seed)
{
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> distribution(low, high);
    std::vector<Point> points(count);
    for (Point& point : points) {
        point = {distribution(random), distribution(random), isFlat ? 0.0 : distribution(random)};
    }
    return points;
}

double linearField(Point const& place)
{
    return 3 - 0.7 * place[0] + 1.9 * place[1] + 0.3 * place[2];
}

std::vector<double> linearAt(std::vector<Point> const& points)
{
    std::vector<double> values(points.size());
    std::transform(points.begin(), points.end(), values.begin(), linearField);
    return values;
}

constexpr Shape everyShapeOfCells[] = {Shape::Triangle, Shape::Quad,  Shape::Polygon, Shape::Tetrahedron,
                                       Shape::Pyramid,  Shape::Prism, Shape::Brick,   Shape::Polyhedron};

/// Sides of cells by the places of their corners; those of a cell in the plane are edges.
std::vector<std::vector<std::size_t>> sidesOf(Shape shape)
{
    switch (shape) {
    case Shape::Triangle:
        return {{0, 1}, {1, 2}, {2, 0}};
    case Shape::Quad:
    case Shape::Polygon:
        return {{0, 1}, {1, 2}, {2, 3}, {3, 0}};
    case Shape::Tetrahedron:
        return {{0, 1, 2}, {0, 1, 3}, {1, 2, 3}, {2, 0, 3}};
    case Shape::Pyramid:
        return {{0, 1, 2}, {0, 1, 4}, {1, 2, 4}, {2, 3, 4}, {3, 0, 4}};
    case Shape::Prism:
        return {{0, 1, 2}, {3, 4, 5}, {0, 1, 4}, {1, 2, 5}, {2, 0, 3}};
    default:
        return {{0, 1, 2}, {4, 5, 6}, {0, 1, 5}, {1, 2, 6}, {2, 3, 7}, {3, 0, 4}};
    }
}

/// Whether a point is on no side of a convex cell beyond it. Exact for coordinates that are small multiples of 0.5.
bool isInConvexCell(sample::CellLists const& lists, std::size_t cell, Point const& point)
{
    std::vector<Point> const corners = lists.cornersOf(cell);
    auto const sides = sidesOf(lists.shapes[cell]);
    return std::all_of(sides.begin(), sides.end(), [&](std::vector<std::size_t> const& side) {
        Point const a = corners[side[0]];
        Point const b = corners[side[1]];
        Point const c = side.size() > 2 ? corners[side[2]] : Point{a[0], a[1], a[2] + 1};
        Point const u{b[0] - a[0], b[1] - a[1], b[2] - a[2]};
        Point const v{c[0] - a[0], c[1] - a[1], c[2] - a[2]};
        Point const normal{u[1] * v[2] - u[2] * v[1], u[2] * v[0] - u[0] * v[2], u[0] * v[1] - u[1] * v[0]};
        auto const height = [&](Point const& p) {
            return normal[0] * (p[0] - a[0]) + normal[1] * (p[1] - a[1]) + normal[2] * (p[2] - a[2]);
        };
        double sum = 0; // of the corners, all of which are on one side
        for (Point const& corner : corners) {
            sum += height(corner);
        }
        return sum * height(point) >= 0;
    });
}

/// Compares each point with all cells: it has to be in the one that was found, and in none before it.
void expectTheLowestCells(sample::CellLists const& lists, std::vector<Point> const& points, CellsFound const& search)
{
    constexpr long double band = 1e-9L; // where rounding decides
    std::mt19937 random(3);
    std::vector<double> values(lists.points.size());
    std::generate(values.begin(), values.end(), [&] { return std::uniform_real_distribution<double>(-1, 1)(random); });
    std::vector<ExactCell> cells;
    for (std::size_t cell = 0; cell < lists.shapes.size(); ++cell) {
        cells.emplace_back(lists, cell, values);
    }
    for (std::size_t point = 0; point < points.size(); ++point) {
        std::int64_t const slot = search.slot(point);
        auto const end = slot < 0 ? cells.size() : static_cast<std::size_t>(slot);
        for (std::size_t lower = 0; lower < end; ++lower) {
            ASSERT_LT(cells[lower].at(points[point]).margin, band) << "point " << point << " cell " << lower;
        }
        if (slot >= 0) {
            ExactCell::Inside const inside = cells[end].at(points[point]);
            ASSERT_GT(inside.margin, -band) << "point " << point << " cell " << slot;
            EXPECT_NEAR(search.value(point, values), static_cast<double>(inside.value), 1e-9);
        }
    }
}

} // namespace

TEST(CellSearch, LeavesALinearFieldAsItIsInEveryShapeOfCells)
{
    for (Shape const shape : everyShapeOfCells) {
        auto lists = sample::fillOf(shape, 7, 0.2, 11);
        lists.shuffle(5);
        std::vector<Point> const points = somePoints(5003, 0, 7, Connectivity::isFace(shape), 1);
        auto const zone = lists.zone(sample::zoneTypeOf(shape));
        CellsFound const search({zone.get()}, points);
        std::vector<double> const values = linearAt(lists.points);
        for (std::size_t point = 0; point < points.size(); ++point) {
            ASSERT_GE(search.slot(point), 0) << "shape " << int(shape) << " point " << point;
            EXPECT_NEAR(search.value(point, values), linearField(points[point]), 1e-13 * 16);
        }
    }
}

TEST(CellSearch, LeavesALinearFieldAsItIsInOrderedZones)
{
    std::vector<Point> const inSpace = somePoints(4999, 0, 6, false, 1);
    auto const solid = sample::orderedFill(7, 7, 7, 0.25, 1);
    for (int across = 0; across < 4; ++across) { // three planes and a solid
        std::vector<Point> points = inSpace;
        std::int64_t dims[3] = {7, 7, 7};
        if (across < 3) {
            dims[across] = 1;
            for (Point& point : points) {
                point[static_cast<std::size_t>(across)] = 0;
            }
        }
        auto const zone = sample::orderedFill(dims[0], dims[1], dims[2], 0.25, 2);
        sample::addNodal(*zone, linearField);
        std::vector<double> values;
        for (std::int64_t at = 0; at < zone->pointCount(); ++at) {
            values.push_back(zone->fields[3].group()->buffer()->value(at));
        }
        CellsFound const search({zone.get()}, points);
        for (std::size_t point = 0; point < points.size(); ++point) {
            ASSERT_GE(search.slot(point), 0) << "across " << across << " point " << point;
            EXPECT_NEAR(search.value(point, values), linearField(points[point]), 1e-13 * 16);
        }
    }
}

TEST(CellSearch, FindsTheLowestOfAllCellsThatContainAPoint)
{
    for (Shape const shape : everyShapeOfCells) {
        auto lists = sample::fillOf(shape, 4, 0.3, 21);
        lists.shuffle(6);
        bool const hasParts = shape == Shape::Polygon || shape == Shape::Polyhedron; // which take long to compare
        std::vector<Point> const points = somePoints(hasParts ? 301 : 1501, -0.5, 4.5, Connectivity::isFace(shape), 2);
        auto const zone = lists.zone(sample::zoneTypeOf(shape));
        SCOPED_TRACE(int(shape));
        expectTheLowestCells(lists, points, CellsFound({zone.get()}, points));
    }
    auto const lists = sample::mixedFill(4, 0.3, 22);
    std::vector<Point> const points = somePoints(301, -0.5, 4.5, false, 2);
    expectTheLowestCells(lists, points, CellsFound({lists.zone(ZoneType_FEMixed).get()}, points));
}

TEST(CellSearch, PutsAPointOnAFaceAnEdgeOrACornerIntoTheLowestCell)
{
    for (Shape const shape : everyShapeOfCells) {
        bool const isFlat = Connectivity::isFace(shape);
        auto lists = sample::fillOf(shape, 3, 0, 0);
        lists.shuffle(8);
        std::vector<Point> points; // all corners, and the middles of edges and sides
        for (int at = 0; at < 7 * 7 * (isFlat ? 1 : 7); ++at) {
            points.push_back({at % 7 * 0.5, at / 7 % 7 * 0.5, at / 49 * 0.5});
        }
        auto const zone = lists.zone(sample::zoneTypeOf(shape));
        CellsFound const search({zone.get()}, points);
        for (std::size_t point = 0; point < points.size(); ++point) {
            std::size_t lowest = 0;
            while (!isInConvexCell(lists, lowest, points[point])) {
                ++lowest;
            }
            EXPECT_EQ(search.slot(point), lowest) << "shape " << int(shape) << " point " << point;
        }
    }
}

TEST(CellSearch, PutsAPointBetweenCellsOfAnOrderedZoneIntoTheLowest)
{
    auto const zone = sample::orderedFill(4, 5, 3, 0, 0);
    std::vector<Point> points;
    std::vector<std::int64_t> expected;
    for (int at = 0; at < 4 * 5 * 3; ++at) {
        int const place[3] = {at % 4, at / 4 % 5, at / 20};
        points.push_back({double(place[0]), double(place[1]), double(place[2])});
        int const cell[3] = {std::max(place[0] - 1, 0), std::max(place[1] - 1, 0), std::max(place[2] - 1, 0)};
        expected.push_back(cell[0] + 4 * cell[1] + 20 * cell[2]);
    }
    EXPECT_EQ(CellsFound({zone.get()}, points).slots(), expected);
}

TEST(CellSearch, TakesTheFirstZoneThatHasThePoint)
{
    auto const small = sample::orderedFill(3, 3, 3, 0, 0);
    auto const large = sample::fillOf(Shape::Tetrahedron, 4, 0, 0).zone(ZoneType_FETetra);
    std::vector<Point> const points = somePoints(2003, -1, 5, false, 4);
    CellsFound const smallFirst({small.get(), large.get()}, points);
    CellsFound const largeFirst({large.get(), small.get()}, points);
    for (std::size_t point = 0; point < points.size(); ++point) {
        auto const within = [&](double edge) { return Box{{0, 0, 0}, {edge, edge, edge}}.contains(points[point]); };
        EXPECT_EQ(smallFirst.found(point).has_value(), within(4));
        EXPECT_EQ(largeFirst.found(point).has_value(), within(4));
        if (within(4)) {
            EXPECT_EQ(smallFirst.found(point)->zone, within(2) ? 0 : 1);
            EXPECT_EQ(largeFirst.found(point)->zone, 0);
        }
    }
}

TEST(CellSearch, FindsTheSameWithAnyNumberOfThreads)
{
    auto lists = sample::fillOf(Shape::Pyramid, 13, 0.3, 3); // enough cells to be put into another order
    lists.shuffle(9);
    auto const zone = lists.zone(ZoneType_FEMixed);
    std::vector<Point> const points = somePoints(20011, -0.5, 13.5, false, 5);
    std::vector<std::vector<std::int64_t>> found;
    for (int const threads : {1, 2, 16}) {
        Threads const some(threads);
        found.push_back(CellsFound({zone.get(), zone.get()}, points).slots());
    }
    EXPECT_EQ(found[1], found[0]);
    EXPECT_EQ(found[2], found[0]);
}

TEST(CellSearch, FindsManyPointsInOneCell)
{
    auto const zone = sample::fillOf(Shape::Brick, 1, 0, 0).zone(ZoneType_FEBrick);
    std::vector<Point> const points = somePoints(50021, -0.5, 1.5, false, 6);
    CellsFound const search({zone.get()}, points);
    for (std::size_t point = 0; point < points.size(); ++point) {
        EXPECT_EQ(search.slot(point), (Box{{0, 0, 0}, {1, 1, 1}}.contains(points[point]) ? 0 : -1));
    }
}

TEST(CellSearch, FindsPointsOfASurfaceInSpace)
{
    auto lists = sample::fillOf(Shape::Triangle, 6, 0.2, 2);
    for (Point& point : lists.points) { // a slanting plane
        point[2] = 2 * point[0] - point[1];
    }
    std::vector<Point> points = somePoints(2003, 0, 6, true, 7);
    for (std::size_t at = 0; at < points.size(); ++at) {
        points[at][2] = 2 * points[at][0] - points[at][1] + (at % 2 == 0 ? 1e-5 : 0.1);
    }
    CellsFound const search({lists.zone(ZoneType_FETriangle).get()}, points);
    for (std::size_t point = 0; point < points.size(); ++point) {
        EXPECT_EQ(search.found(point).has_value(), point % 2 == 0) << point;
    }
}

TEST(CellSearch, FindsPointsBesideASurfaceAlongTheAxes)
{
    for (std::size_t across = 0; across < 3; ++across) {
        auto lists = sample::fillOf(Shape::Quad, 6, 0.2, 2);
        std::vector<Point> points = somePoints(2003, 0.01, 5.99, true, 7);
        auto const turn = [across](Point& point, double height) {
            point[2] = height;
            std::swap(point[2], point[across]);
        };
        for (Point& point : lists.points) {
            turn(point, 0.1);
        }
        for (std::size_t at = 0; at < points.size(); ++at) {
            turn(points[at], 0.1 + (at % 4 == 0 ? 1e-5 : at % 4 == 1 ? -1e-5 : at % 4 == 2 ? 0.0 : 1e-2));
        }
        CellsFound const search({lists.zone(ZoneType_FEQuad).get()}, points);
        for (std::size_t point = 0; point < points.size(); ++point) {
            EXPECT_EQ(search.found(point).has_value(), point % 4 != 3) << across << " " << point;
        }
    }
}

TEST(CellSearch, FindsPointsThatRoundingPutsBesideTheOutermostFace)
{
    double const edge = 0.3;
    double const beside = 3 * 0.1; // the next number
    ASSERT_GT(beside, edge);
    std::vector<Point> const points = {{beside, 0.1, 0.1}, {0.1, beside, 0.1}, {0.1, 0.1, beside}, {0.30001, 0.1, 0.1}};
    auto const ordered = sample::orderedFill(2, 2, 2, 0, 0);
    for (std::size_t axis = 0; axis < 3; ++axis) {
        std::vector<double> coordinates;
        for (std::size_t point = 0; point < 8; ++point) {
            coordinates.push_back((point >> axis & 1U) != 0 ? edge : 0.0);
        }
        ordered->fields[axis] = sample::field(coordinates, FieldDataType_Double);
    }
    EXPECT_THAT(CellsFound({ordered.get()}, points).slots(), ElementsAre(0, 0, 0, -1));
}

/// Planes in space that a polygon may lie in: places of them by two coordinates.
using Plane = Point (*)(double, double);
constexpr Plane planes[] = {
    [](double x, double y) {
        return Point{x, y, 0};
    },
    [](double x, double y) {
        return Point{0, x, y};
    },
    [](double x, double y) {
        return Point{y, 0, x};
    },
    [](double x, double y) {
        return Point{x, y, x + y + 1};
    },
    [](double x, double y) { // its normal is as long along Y as along X and Z together
        return Point{5 * x + 4 * y, -3 * x, -3 * y};
    },
};

TEST(CellSearch, LeavesOutTheNotchOfAPolygonInWhateverPlane)
{
    for (Plane const plane : planes) {
        for (bool const isReversed : {false, true}) {
            sample::CellLists lists;
            lists.points = {plane(0, 0), plane(4, 0), plane(4, 4), plane(2, 1), plane(0, 4)};
            lists.add(Shape::Polygon,
                      isReversed ? std::vector<std::int64_t>{4, 3, 2, 1, 0} : std::vector<std::int64_t>{0, 1, 2, 3, 4});
            std::vector<Point> const flat = somePoints(3001, -1, 5, true, 8);
            std::vector<Point> points;
            for (Point const& point : flat) {
                points.push_back(plane(point[0], point[1]));
            }
            CellsFound const search({lists.zone(ZoneType_FEPolygon).get()}, points);
            for (std::size_t point = 0; point < points.size(); ++point) {
                auto const [x, y, z] = flat[point];
                bool const isBelowNotch = y < 1 + 1.5 * std::abs(x - 2);
                bool const isIn = x > 0 && x < 4 && y > 0 && isBelowNotch;
                EXPECT_EQ(search.slot(point), isIn ? 0 : -1) << x << " " << y;
            }
        }
    }
}

TEST(CellSearch, LeavesOutTheGapOfAPolygonAlsoWhereItsPartsMeet)
{
    for (Plane const plane : planes) {
        sample::CellLists lists;
        lists.points = {plane(0, 0), plane(4, 0), plane(4, 4), plane(3, 4),
                        plane(3, 1), plane(1, 1), plane(1, 4), plane(0, 4)};
        lists.add(Shape::Polygon, {0, 1, 2, 3, 4, 5, 6, 7});
        std::vector<Point> points;
        std::vector<bool> areIn;
        for (int i = -8; i <= 72; ++i) { // through the middle at (2, 2.25), where all parts meet, and along their edges
            for (int j = -8; j <= 72; ++j) {
                double const x = i / 16.0;
                double const y = j / 16.0;
                points.push_back(plane(x, y));
                bool const isInGap = x > 1 && x < 3 && y > 1;
                areIn.push_back(x >= 0 && x <= 4 && y >= 0 && y <= 4 && !isInGap);
            }
        }
        CellsFound const search({lists.zone(ZoneType_FEPolygon).get()}, points);
        for (std::size_t point = 0; point < points.size(); ++point) {
            EXPECT_EQ(search.found(point).has_value(), areIn[point]) << points[point][0] << " " << points[point][1];
        }
    }
}

TEST(CellSearch, LeavesOutWhatHasNoAreaAndNoVolume)
{
    sample::CellLists lists;
    lists.points = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}};
    lists.add(Shape::LineSegment, {0, 1});
    lists.add(Shape::Polyhedron, {0, 1, 2});
    lists.add(Shape::Polygon, {0, 1});
    lists.add(Shape::Polygon, {});
    std::vector<Point> const points{{0, 0, 0}, {0.5, 0, 0}, {1, 0, 0}};
    EXPECT_THAT(CellsFound({lists.zone(ZoneType_FEMixed).get()}, points).slots(), ElementsAre(-1, -1, -1));
    auto const line = sample::orderedFill(5, 1, 1, 0, 0);
    EXPECT_THAT(CellsFound({line.get()}, points).slots(), ElementsAre(-1, -1, -1));
    Zone const empty("empty", ZoneType_Ordered, 0, 0, 0);
    ZoneCells const none(empty.type, {0, 0, 0, nullptr, nullptr}, {});
    EXPECT_EQ(none.slotCount(), 0);
}

TEST(CellSearch, LeavesOutHiddenCellsAndCountsThem)
{
    auto const zone = sample::orderedFill(4, 3, 3, 0, 0);
    Blanking::Marks marks;
    marks.ofCells = sample::bufferOf(
        sample::field(std::vector<double>{0, Blanking::hiddenCell, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}, FieldDataType_Byte));
    zone->blanking = std::make_shared<Blanking>(*zone, marks);
    std::vector<Point> const points{{0.5, 0.5, 0.5}, {1.5, 0.5, 0.5}, {2, 0.5, 0.5}, {1.5, 1, 0.5}};
    CellsFound const search({zone.get()}, points);
    EXPECT_THAT(search.slots(), ElementsAre(0, -1, 2, 5));
    EXPECT_EQ(search.search.hiddenCount(), 1);
    EXPECT_EQ(search.search.unplacedCount(), 0);
}

TEST(CellSearch, LeavesOutCellsWithACornerNowhereAndCountsThem)
{
    for (double const nowhere : {notANumber, infinity}) {
        auto lists = sample::fillOf(Shape::Brick, 3, 0, 0);
        lists.points[21][1] = nowhere; // the corner at (1, 1, 1), of eight cells
        std::vector<Point> const points{{0.5, 0.5, 0.5}, {1.5, 1.5, 1.5}, {2.5, 0.5, 0.5}, {0.5, 0.5, 2.5}};
        CellsFound const search({lists.zone(ZoneType_FEBrick).get()}, points);
        EXPECT_THAT(search.slots(), ElementsAre(-1, -1, 2, 18));
        EXPECT_EQ(search.search.unplacedCount(), 8);
        EXPECT_EQ(search.search.hiddenCount(), 0);
    }
}

TEST(CellSearch, TakesNoLongTimeOverFlatCellsWithAllPointsInThem)
{
    sample::CellLists lists = sample::fillOf(Shape::Brick, 30, 0, 0);
    std::fill(lists.points.begin(), lists.points.end(), Point{1, 1, 1});
    std::vector<Point> const points(300000, Point{1, 1, 1}); // 27,000 times as many visits would take minutes
    CellsFound const search({lists.zone(ZoneType_FEBrick).get()}, points);
    EXPECT_EQ(search.slot(0), -1);
    EXPECT_EQ(search.slot(299999), -1);
}

TEST(CellSearch, ReadsCoordinatesOfEveryType)
{
    auto const lists = sample::fillOf(Shape::Brick, 4, 0, 0);
    std::vector<Point> const points = somePoints(501, 0, 4, false, 8);
    std::vector<std::int64_t> const expected = CellsFound({lists.zone(ZoneType_FEBrick).get()}, points).slots();
    for (FieldDataType_e const type :
         {FieldDataType_Float, FieldDataType_Int32, FieldDataType_Int16, FieldDataType_Byte}) {
        EXPECT_EQ(CellsFound({lists.zone(ZoneType_FEBrick, type).get()}, points).slots(), expected);
    }
}

TEST(CellSearch, EndsWhenItIsInterrupted)
{
    std::vector<Point> const points = somePoints(5003, 0, 4, false, 8);
    Progress progress;
    PointBins const bins(sample::placesOf(points, 3), 3, progress);
    CellSearch search(bins);
    Progress interrupted;
    interrupted.interrupt();
    auto const lists = sample::fillOf(Shape::Brick, 4, 0, 0);
    EXPECT_THROW(search.addZone(sample::cellsOf(*lists.zone(ZoneType_FEBrick)), interrupted), Interrupted);
}

/// Counts how often it is asked in the second half of the work, but not at its very start or end.
class WatchedProgress : public Progress
{
public:
    bool isInterrupted() const override
    {
        if (fraction() > 0.5 && fraction() < 1) {
            ++seenInside;
        }
        return false;
    }
    mutable std::atomic<int> seenInside{0};
};

TEST(CellSearch, TellsHowFarItIsWhileItGoesThroughTheCells)
{
    std::vector<Point> const points = somePoints(100, 0, 4, false, 8);
    Progress progress;
    PointBins const bins(sample::placesOf(points, 3), 3, progress);
    CellSearch search(bins);
    WatchedProgress watched;
    auto const lists = sample::fillOf(Shape::Brick, 20, 0, 0);
    search.addZone(sample::cellsOf(*lists.zone(ZoneType_FEBrick)), watched);
    EXPECT_GT(watched.seenInside, 0);
}

} // namespace veldraw::tests

#include "kernel/compute/PlaneTriangulation.h"

#include "kernel/base/ExactMemory.h"
#include "tests/kernel/support/LookCounter.h"
#include "tests/kernel/support/PlaneTriangles.h"
#include "tests/kernel/support/ScatteredPoints.h"
#include "tests/support/AllocationFailure.h"

#include <boost/polygon/voronoi.hpp>

#include <cmath>
#include <gmock/gmock.h>

namespace veldraw::tests {

using namespace kernel;
using Places = std::vector<PlanePlace>;
using Number = PlaneTriangulation::Number;
using Edge = PlaneTriangles::Edge;

namespace {

struct PlaneLine
{
    Places places;
    bool isOfLoop = false;
};

PlaneLine loop(Places places)
{
    places.push_back(places.front());
    return {std::move(places), true};
}

PlaneLine square(double low, double high)
{
    return loop({{low, low}, {high, low}, {high, high}, {low, high}});
}

Progress const unwatched; // as long as any triangulation that asks it

/// Points in the plane, with lines, and what becomes of them.
struct Plane
{
    explicit Plane(Places const& points, Progress const& progress = unwatched)
        : triangulation(progress)
        , places(points)
    {
        Progress inserting;
        std::vector<Number> order(places.size());
        std::iota(order.begin(), order.end(), 0U);
        hasTriangles = triangulation.insertPoints(places.data(), order, inserting);
    }

    void draw(std::vector<PlaneLine> const& lines)
    {
        for (PlaneLine const& line : lines) {
            std::vector<Number> numbers(line.places.size());
            std::iota(numbers.begin(), numbers.end(), static_cast<Number>(places.size()));
            places.insert(places.end(), line.places.begin(), line.places.end());
            known += triangulation.insertLine(line.places, numbers, line.isOfLoop);
        }
        triangulation.joinLines(static_cast<Number>(places.size()));
        for (PlaneTriangulation::Crossing const& crossing : triangulation.crossings()) {
            places.push_back(crossing.place);
        }
    }

    PlaneTriangles triangles() const
    {
        std::vector<std::int64_t> corners(static_cast<std::size_t>(3 * triangulation.triangleCount()));
        Progress writing;
        triangulation.writeTriangles(corners.data(), writing);
        PlaneTriangles result;
        result.places = places;
        for (std::size_t at = 0; at < corners.size(); at += 3) {
            PlaneTriangles::Triangle triangle{};
            std::copy_n(corners.begin() + static_cast<std::ptrdiff_t>(at), 3, triangle.corners.begin());
            result.triangles.push_back(triangle);
        }
        return result;
    }

    PlaneTriangulation triangulation;
    Places places; ///< by number; points of lines that were there have an entry that no triangle uses
    bool hasTriangles = false;
    std::int64_t known = 0;
};

Places randomPlaces(std::size_t count, unsigned seed, double low = 0, double high = 1)
{
    ScatteredPoints const points = ScatteredPoints::random(2, count, seed);
    Places places;
    for (std::size_t at = 0; at < count; ++at) {
        places.push_back({low + (high - low) * points.at(at)[0], low + (high - low) * points.at(at)[1]});
    }
    return places;
}

Places placesOf(std::size_t count, std::function<PlanePlace(double)> const& curve)
{
    Places places;
    for (std::size_t at = 0; at < count; ++at) {
        places.push_back(curve(static_cast<double>(at)));
    }
    return places;
}

Places differentOf(Places places)
{
    std::sort(places.begin(), places.end());
    places.erase(std::unique(places.begin(), places.end()), places.end());
    return places;
}

void expectDelaunay(Places const& places)
{
    Plane const plane(places);
    ASSERT_TRUE(plane.hasTriangles);
    PlaneTriangles const triangles = plane.triangles();
    EXPECT_TRUE(triangles.areAllForward());
    EXPECT_EQ(triangles.nonDelaunayCount(), 0);
    EXPECT_EQ(triangles.eulerCharacteristic(), 1);
    EXPECT_EQ(triangles.doubleArea(), doubleAreaOfHull(places));
}

double distanceBetween(PlanePlace const& a, PlanePlace const& b)
{
    return std::hypot(b[0] - a[0], b[1] - a[1]);
}

double distanceToEdge(PlanePlace const& place, PlanePlace const& from, PlanePlace const& to)
{
    double const x = to[0] - from[0];
    double const y = to[1] - from[1];
    double const along = ((place[0] - from[0]) * x + (place[1] - from[1]) * y) / (x * x + y * y);
    double const share = std::clamp(along, 0.0, 1.0);
    return distanceBetween(place, {from[0] + share * x, from[1] + share * y});
}

/// Whether each edge of a line is a chain of edges of triangles, which goes through places within @p tolerance of it.
bool isChainOfEdges(PlaneTriangles const& triangles, PlanePlace const& from, PlanePlace const& to, double tolerance)
{
    double const length = distanceBetween(from, to);
    std::map<double, std::size_t> onIt; // by the distance from its beginning
    for (auto const& [edge, count] : triangles.edges()) {
        for (std::size_t const point : {edge.first, edge.second}) {
            PlanePlace const& place = triangles.places[point];
            double const around = distanceBetween(from, place) + distanceBetween(place, to);
            if (around - length <= tolerance) {
                onIt.emplace(distanceBetween(from, place), point);
            }
        }
    }
    auto const edges = triangles.edges();
    for (auto at = onIt.begin(); at != onIt.end() && std::next(at) != onIt.end(); ++at) {
        if (edges.count(std::minmax({at->second, std::next(at)->second})) == 0) {
            return false;
        }
    }
    return onIt.size() >= 2 && onIt.begin()->first <= tolerance && onIt.rbegin()->first >= length - tolerance;
}

/// The same from the angles of a triangle: r / R = 4 sin(A / 2) sin(B / 2) sin(C / 2).
double roundnessOf(PlaneTriangles const& triangles, PlaneTriangles::Triangle const& triangle)
{
    double product = 4;
    for (std::size_t corner = 0; corner < 3; ++corner) {
        PlanePlace const& at = triangles.places[triangle.corners[corner]];
        PlanePlace const& next = triangles.places[triangle.corners[(corner + 1) % 3]];
        PlanePlace const& last = triangles.places[triangle.corners[(corner + 2) % 3]];
        double const toNext = std::atan2(next[1] - at[1], next[0] - at[0]);
        double const toLast = std::atan2(last[1] - at[1], last[0] - at[0]);
        product *= std::sin(std::remainder(toLast - toNext, 2 * M_PI) / 2);
    }
    return product;
}

/// Takes flat triangles at the rim away until there are none, the slow way.
PlaneTriangles withoutSlivers(PlaneTriangles triangles, double factor, std::set<Edge> const& lines)
{
    for (bool isDone = false; !isDone;) {
        auto const edges = triangles.edges();
        auto const goes = [&](PlaneTriangles::Triangle const& triangle) {
            bool isAtRim = false;
            for (std::size_t corner = 0; corner < 3; ++corner) {
                Edge const edge = std::minmax({triangle.corners[corner], triangle.corners[(corner + 1) % 3]});
                isAtRim = isAtRim || (edges.at(edge) == 1 && lines.count(edge) == 0);
            }
            return isAtRim && roundnessOf(triangles, triangle) < factor;
        };
        auto const end = std::remove_if(triangles.triangles.begin(), triangles.triangles.end(), goes);
        isDone = end == triangles.triangles.end();
        triangles.triangles.erase(end, triangles.triangles.end());
    }
    return triangles;
}

} // namespace

TEST(PlaneTriangulation, HasNoPointWithinTheCircleOfATriangle)
{
    expectDelaunay(randomPlaces(2000, 4));
}

TEST(PlaneTriangulation, TriangulatesAGridWhoseSquaresHaveFourCornersOnACircle)
{
    for (double const spacing : {1.0, 0.1, 1.0 / 3}) {
        Places places;
        for (int i = 0; i < 25; ++i) {
            for (int j = 0; j < 20; ++j) {
                places.push_back({i * spacing, 7 + j * spacing});
            }
        }
        expectDelaunay(places);
    }
}

TEST(PlaneTriangulation, TriangulatesPointsOnACircleASpiralAndAComb)
{
    expectDelaunay(placesOf(800, [](double t) { return PlanePlace{std::cos(t), std::sin(t)}; }));
    expectDelaunay(placesOf(800, [](double t) { return PlanePlace{t * std::cos(t / 40), t * std::sin(t / 40)}; }));
    expectDelaunay(placesOf(800, [](double t) {
        return PlanePlace{std::floor(t / 2), std::fmod(t, 2) < 1 ? 0 : 1000 + std::fmod(t, 7)};
    }));
}

TEST(PlaneTriangulation, TellsPointsApartThatAreAlmostAtTheSamePlace)
{
    Places places;
    for (PlanePlace const& place : randomPlaces(400, 9, 1e6, 1e6 + 100)) {
        for (int step = 0; step < 3; ++step) {
            places.push_back({place[0] + step * 1e-9, place[1] + (step % 2) * 1e-9});
        }
    }
    places = differentOf(places);
    ASSERT_GT(places.size(), 1100U);
    expectDelaunay(places);
}

TEST(PlaneTriangulation, TakesNumbersOfAnySize)
{
    for (double const size : {1e-320, 1e-300, 1e-150, 1e150, 1e300}) {
        Places places;
        for (PlanePlace const& place : randomPlaces(150, 3)) {
            places.push_back({place[0] * size, place[1] * size});
        }
        places.push_back({-1, 2}); // beside others of common size
        expectDelaunay(differentOf(places));
    }
}

TEST(PlaneTriangulation, HasTheTrianglesBetweenTheCellsThatBoostFinds)
{
    using Cells = boost::polygon::voronoi_diagram<double>;
    for (unsigned const seed : {1U, 2U, 3U}) {
        std::vector<boost::polygon::point_data<int>> points;
        Places places;
        for (PlanePlace const& place : differentOf(randomPlaces(3000, seed))) {
            points.emplace_back(static_cast<int>(place[0] * 2e9), static_cast<int>(place[1] * 2e9));
            places.push_back({static_cast<double>(points.back().x()), static_cast<double>(points.back().y())});
        }
        Cells cells;
        boost::polygon::construct_voronoi(points.begin(), points.end(), &cells);
        std::set<std::array<std::size_t, 3>> expected;
        for (auto const& vertex : cells.vertices()) {
            std::vector<std::size_t> around;
            auto const* edge = vertex.incident_edge();
            do {
                around.push_back(edge->cell()->source_index());
                edge = edge->rot_next();
            } while (edge != vertex.incident_edge());
            ASSERT_EQ(around.size(), 3U) << "four points on a circle";
            std::sort(around.begin(), around.end());
            expected.insert({around[0], around[1], around[2]});
        }
        EXPECT_EQ(Plane(places).triangles().sorted(), expected);
    }
}

TEST(PlaneTriangulation, MakesNothingOfPointsOnALine)
{
    EXPECT_FALSE(Plane({}).hasTriangles);
    EXPECT_FALSE(Plane({{1, 2}}).hasTriangles);
    EXPECT_FALSE(Plane({{1, 2}, {3, 4}}).hasTriangles);
    EXPECT_FALSE(Plane(placesOf(5000, [](double t) { return PlanePlace{t / 8, 3 * t / 8}; })).hasTriangles);
    Places almost = placesOf(5000, [](double t) { return PlanePlace{t, t}; });
    almost.push_back({2500, std::nextafter(2500, 0)});
    expectDelaunay(almost);
}

TEST(PlaneTriangulation, MixesALinearFunctionOfTheCorners)
{
    Places const places = randomPlaces(2000, 5);
    auto const value = [](PlanePlace const& place) { return 2 - 3 * place[0] + 7 * place[1]; };
    Plane plane(places);
    for (PlanePlace const& place : randomPlaces(4000, 6, 0.1, 0.9)) {
        PlaneTriangulation::Mix const mix = plane.triangulation.mixAt(place);
        double sum = 0;
        for (std::size_t at = 0; at < 3; ++at) {
            EXPECT_GE(mix.shares[at], 0);
            sum += mix.shares[at] * value(places[mix.points[at]]);
        }
        EXPECT_NEAR(sum, value(place), 1e-12);
    }
}

TEST(PlaneTriangulation, MixesNothingElseIntoACornerOrAnEdge)
{
    Plane plane({{0, 0}, {4, 0}, {4, 4}, {0, 4}, {1, 2}});
    for (Number point = 0; point < plane.places.size(); ++point) {
        PlaneTriangulation::Mix const mix = plane.triangulation.mixAt(plane.places[point]);
        EXPECT_EQ(mix.points[0], point);
        EXPECT_THAT(mix.shares, testing::ElementsAre(1, 0, 0));
    }
    PlaneTriangulation::Mix const rim = plane.triangulation.mixAt({3, 0});
    EXPECT_THAT(rim.shares, testing::UnorderedElementsAre(0.25, 0.75, 0));
}

TEST(PlaneTriangulation, MixesTheNearestPlaceOfTheRimOutside)
{
    Places const places = randomPlaces(300, 7);
    Plane plane(places);
    auto const edges = plane.triangles().edges();
    for (PlanePlace const& place : randomPlaces(2000, 8, -3, 4)) {
        bool const isOutside = place[0] < 0 || place[0] > 1 || place[1] < 0 || place[1] > 1;
        if (!isOutside) {
            continue;
        }
        double least = 1e300;
        for (auto const& [edge, count] : edges) {
            if (count == 1) {
                least = std::min(least, distanceToEdge(place, places[edge.first], places[edge.second]));
            }
        }
        PlaneTriangulation::Mix const mix = plane.triangulation.mixAt(place);
        PlanePlace found{};
        for (std::size_t at = 0; at < 3; ++at) {
            found[0] += mix.shares[at] * places[mix.points[at]][0];
            found[1] += mix.shares[at] * places[mix.points[at]][1];
        }
        EXPECT_NEAR(distanceBetween(place, found), least, 1e-12);
    }
}

TEST(PlaneTriangulation, HasEveryEdgeOfALineAsAChainOfEdges)
{
    Plane plane(randomPlaces(500, 11));
    PlaneLine const zigzag{placesOf(60, [](double t) { return PlanePlace{t / 60, std::fmod(t, 2) * 0.9 + 0.05}; })};
    PlaneLine const across{{{-0.2, 0.31}, {1.2, 0.63}}};
    plane.draw({zigzag, across});
    EXPECT_EQ(plane.triangulation.crossings().size(), 59U);
    PlaneTriangles const triangles = plane.triangles();
    EXPECT_TRUE(triangles.areAllForward());
    for (PlaneLine const& line : {zigzag, across}) {
        for (std::size_t at = 0; at + 1 < line.places.size(); ++at) {
            EXPECT_TRUE(isChainOfEdges(triangles, line.places[at], line.places[at + 1], 1e-14)) << at;
        }
    }
    EXPECT_EQ(triangles.doubleArea(), doubleAreaOfHull(triangles.places));
}

TEST(PlaneTriangulation, IsADelaunayTriangulationBesideItsLines)
{
    Plane plane(randomPlaces(800, 12));
    plane.draw({square(0.2, 0.8), {{{0.1, 0.1}, {0.9, 0.9}}}});
    PlaneTriangles const triangles = plane.triangles();
    std::set<Edge> lines;
    for (auto const& [edge, count] : triangles.edges()) {
        PlanePlace const& a = triangles.places[edge.first];
        PlanePlace const& b = triangles.places[edge.second];
        bool const isDiagonal = std::abs(a[0] - a[1]) + std::abs(b[0] - b[1]) < 1e-12;
        bool isSide = false;
        for (std::size_t axis = 0; axis < 2; ++axis) {
            for (double const side : {0.2, 0.8}) {
                isSide = isSide || (a[axis] == side && b[axis] == side);
            }
        }
        if (isDiagonal || isSide) {
            lines.insert(edge);
        }
    }
    EXPECT_GT(lines.size(), 5U);
    EXPECT_EQ(triangles.nonDelaunayCount(lines), 0);
    EXPECT_GT(triangles.nonDelaunayCount(), 0) << "lines are in the way";
}

TEST(PlaneTriangulation, TellsWhereLinesCross)
{
    Plane plane({{-9, -9}, {9, -9}, {0, 9}});
    plane.draw({{{{-4, 0}, {4, 0}}}, {{{1, -3}, {1, 1}}}});
    ASSERT_EQ(plane.triangulation.crossings().size(), 1U);
    PlaneTriangulation::Crossing const crossing = plane.triangulation.crossings().front();
    EXPECT_EQ(crossing.place, (PlanePlace{1, 0}));
    EXPECT_EQ(crossing.from, 3U);
    EXPECT_EQ(crossing.to, 4U);
    EXPECT_DOUBLE_EQ(crossing.share, 5.0 / 8);
}

TEST(PlaneTriangulation, StaysWholeHoweverManyLinesCross)
{
    for (unsigned const seed : {1U, 2U, 3U, 4U, 5U, 6U}) {
        // On a grid many lines meet in one point, and many points are on lines, almost or wholly.
        double const grid = seed % 2 == 0 ? 1.0 : 0.1;
        Places ends = randomPlaces(160, seed);
        for (PlanePlace& place : ends) {
            for (double& number : place) {
                number = std::floor(12 * number) * grid;
            }
        }
        Plane plane({{-1, -1}, {20, -1}, {20, 20}, {-1, 20}});
        std::vector<PlaneLine> lines;
        for (std::size_t at = 0; at + 8 <= ends.size(); at += 8) {
            auto const first = ends.begin() + static_cast<std::ptrdiff_t>(at);
            lines.push_back(seed < 4 ? loop({first, first + 8}) : PlaneLine{{first, first + 8}});
        }
        plane.draw(lines);
        EXPECT_GT(plane.triangulation.crossings().size(), 200U);
        PlaneTriangles const triangles = plane.triangles();
        EXPECT_TRUE(triangles.areAllForward());
        EXPECT_EQ(triangles.doubleArea(), 2 * 21 * 21);
        std::int64_t const cut = plane.triangulation.cutOutside();
        EXPECT_EQ(cut > 0, seed < 4);
        EXPECT_GT(plane.triangulation.triangleCount(), 100);
    }
}

TEST(PlaneTriangulation, MakesNoNewPointWhereLinesTouchOrRunTogether)
{
    Plane plane({{-9, -9}, {9, -9}, {0, 9}, {2, 0}});
    plane.draw({{{{-4, 0}, {4, 0}}},             // through a point
                {{{1, 0}, {1, 1}}},              // from the line
                {{{-4, 0}, {-2, -2}, {-3, 0}}},  // from its end, and back to it
                {{{-1, 0}, {3, 0}}},             // along it
                {{{4, 0}, {-4, 0}}},             // the same
                {{{-4, 0}, {-4, 0}, {-4, 1}}}}); // with a point twice
    EXPECT_TRUE(plane.triangulation.crossings().empty());
    EXPECT_EQ(plane.known, 5);
    PlaneTriangles const triangles = plane.triangles();
    EXPECT_TRUE(isChainOfEdges(triangles, {-4, 0}, {4, 0}, 0));
    EXPECT_EQ(triangles.doubleArea(), doubleAreaOfHull(triangles.places));
}

TEST(PlaneTriangulation, CutsAwayWhatIsOutsideALoop)
{
    Plane plane(randomPlaces(1000, 13));
    Places const star = placesOf(30, [](double t) {
        double const radius = std::fmod(t, 2) < 1 ? 0.45 : 0.2;
        return PlanePlace{0.5 + radius * std::cos(t * M_PI / 15), 0.5 + radius * std::sin(t * M_PI / 15)};
    });
    plane.draw({loop(star)});
    std::int64_t const before = plane.triangulation.triangleCount();
    std::int64_t const cut = plane.triangulation.cutOutside();
    PlaneTriangles const triangles = plane.triangles();
    EXPECT_GT(cut, 100);
    EXPECT_EQ(static_cast<std::int64_t>(triangles.triangles.size()), before - cut);
    EXPECT_EQ(triangles.doubleArea(), doubleAreaOf(star));
}

TEST(PlaneTriangulation, CutsNothingAwayWithoutALoop)
{
    Plane plane(randomPlaces(100, 14));
    plane.draw({{{{0.1, 0.1}, {0.9, 0.9}}}});
    EXPECT_EQ(plane.triangulation.cutOutside(), 0);
}

TEST(PlaneTriangulation, LeavesHolesAndIslandsInThem)
{
    Plane plane(randomPlaces(2000, 15, 0, 16));
    plane.draw({square(1, 15), square(3, 13), square(5, 11), square(7, 9)});
    plane.triangulation.cutOutside();
    EXPECT_EQ(plane.triangles().doubleArea(), 2 * (14 * 14 - 10 * 10 + 6 * 6 - 2 * 2));
}

TEST(PlaneTriangulation, LeavesAHoleWhereTwoLoopsOverlap)
{
    Plane plane(randomPlaces(500, 16, 0, 10));
    plane.draw({square(1, 6), square(4, 9)});
    plane.triangulation.cutOutside();
    EXPECT_EQ(plane.triangulation.crossings().size(), 2U);
    EXPECT_EQ(plane.triangles().doubleArea(), 2 * (25 + 25 - 2 * 4));
}

TEST(PlaneTriangulation, SeesNoBorderInAnEdgeThatTwoLoopsHave)
{
    Plane plane(randomPlaces(500, 17, 0, 10));
    PlaneLine const left = loop({{1, 1}, {5, 1}, {5, 5}, {1, 5}});
    PlaneLine const right = loop({{9, 5}, {5, 5}, {5, 1}, {9, 1}});
    PlaneLine const middle = loop({{5, 2}, {7, 2}, {7, 4}, {5, 4}}); // a hole at the edge
    plane.draw({left, right, middle});
    plane.triangulation.cutOutside();
    EXPECT_EQ(plane.triangles().doubleArea(), 2 * (16 + 16 - 4));
}

TEST(PlaneTriangulation, DoesNotTakeOpenLinesForBorders)
{
    Plane plane(randomPlaces(500, 18, 0, 10));
    plane.draw({square(1, 9),
                {{{0, 4}, {10, 4}}},
                {{{0, 6}, {10, 6}}},
                {{{4, 0}, {4, 10}}},
                {{{6, 0}, {6, 10}}}}); // closed all around the middle
    plane.triangulation.cutOutside();
    EXPECT_EQ(plane.triangles().doubleArea(), 2 * 64);
}

TEST(PlaneTriangulation, TakesALineThatGoesThereAndBackForNothing)
{
    Plane plane(randomPlaces(100, 19, 0, 10));
    plane.draw({square(1, 9), {{{3, 3}, {6, 6}, {3, 3}}, true}});
    plane.triangulation.cutOutside();
    EXPECT_EQ(plane.triangles().doubleArea(), 2 * 64);
}

TEST(PlaneTriangulation, TakesFlatTrianglesAwayFromTheRimInwards)
{
    for (double const factor : {0.0, 0.1, 0.25, 0.4}) {
        Places places = randomPlaces(600, 20);
        for (PlanePlace& place : places) { // with a bay
            place[1] += place[1] > 0.5 && std::abs(place[0] - 0.5) < 0.3 ? 0.7 : 0;
        }
        Plane plane(places);
        PlaneTriangles const all = plane.triangles();
        PlaneTriangles const expected = withoutSlivers(all, factor, {});
        EXPECT_EQ(plane.triangulation.removeSlivers(factor),
                  static_cast<std::int64_t>(all.triangles.size() - expected.triangles.size()));
        EXPECT_EQ(plane.triangles().sorted(), expected.sorted());
        EXPECT_EQ(all.triangles.size() == expected.triangles.size(), factor < 0.05);
    }
}

TEST(PlaneTriangulation, KeepsTrianglesWithEqualSidesWhateverTheFactor)
{
    Places places;
    for (int row = 0; row < 20; ++row) {
        for (int at = 0; at < 20; ++at) {
            places.push_back({at + row * 0.5, row * std::sqrt(0.75)});
        }
    }
    Plane plane(places);
    plane.triangulation.removeSlivers(0.5); // rounding leaves some between the rows and the hull
    EXPECT_EQ(plane.triangulation.triangleCount(), 2 * 19 * 19);
}

TEST(PlaneTriangulation, TakesNoTriangleAwayThroughALine)
{
    Places const places = randomPlaces(300, 21);
    Plane open(places);
    PlaneLine const line{{{0.5, -1}, {0.5, 2}}};
    open.draw({line});
    PlaneTriangles const all = open.triangles();
    std::set<Edge> lines;
    for (auto const& [edge, count] : all.edges()) {
        if (all.places[edge.first][0] == 0.5 && all.places[edge.second][0] == 0.5) {
            lines.insert(edge);
        }
    }
    PlaneTriangles const expected = withoutSlivers(all, 0.3, lines);
    open.triangulation.removeSlivers(0.3);
    EXPECT_EQ(open.triangles().sorted(), expected.sorted());

    Plane closed(places);
    closed.draw({square(-1, 2)});
    closed.triangulation.cutOutside();
    EXPECT_EQ(closed.triangulation.removeSlivers(0.5), 0) << "the rim is the boundary";
}

TEST(PlaneTriangulation, LooksForACancelWhileItGoesThroughAllTriangles)
{
    constexpr std::int64_t points = 20000;
    LookCounter counter;
    Plane plane(randomPlaces(points, 5), counter);
    std::int64_t const before = counter.looks();
    plane.draw({loop({plane.places[0], plane.places[1], plane.places[2]})});
    EXPECT_GE(counter.looks() - before, 2 * points / 512);
}

TEST(PlaneTriangulation, LooksForACancelAmongVeryManyEdgesOfLines)
{
    constexpr std::int64_t edges = 30000;
    LookCounter counter;
    Plane plane({{0, 0}, {1, 0}, {0, 1}, {1, 1}}, counter);
    PlaneLine back;
    std::vector<Number> numbers;
    for (std::int64_t edge = 0; edge <= edges; ++edge) {
        back.places.push_back(plane.places[static_cast<std::size_t>(edge % 2)]);
        numbers.push_back(4);
    }
    plane.triangulation.insertLine(back.places, numbers, false);
    std::int64_t const before = counter.looks();
    plane.triangulation.joinLines(4);
    EXPECT_GE(counter.looks() - before, 10 * edges / 512) << "it sorts them, and one is left";
}

/// Does all that there is to do.
void goThroughAll(Progress const& progress)
{
    static Places const places = placesOf(200, [](double t) { return PlanePlace{std::cos(t), std::sin(t)}; });
    Plane plane(places, progress);
    plane.draw({square(-0.5, 0.5), {{{-2, 0}, {2, 0.1}}}});
    plane.triangulation.cutOutside();
    plane.triangulation.removeSlivers(0.2);
    static_cast<void>(plane.triangles());
}

TEST(PlaneTriangulation, StopsAtWhicheverLookItSeesACancel)
{
    LookCounter whole;
    goThroughAll(whole);
    EXPECT_GT(whole.looks(), 20);
    for (std::int64_t look = 1; look <= whole.looks(); ++look) {
        LookCounter const cancelled(look);
        std::int64_t const before = allocatedBytes();
        EXPECT_THROW(goThroughAll(cancelled), Interrupted) << look;
        EXPECT_EQ(allocatedBytes(), before) << look;
    }
}

TEST(PlaneTriangulation, GivesItsMemoryBackWhenThereIsNoMore)
{
    Progress const progress;
    goThroughAll(progress);
    for (int request = 1;; ++request) {
        std::int64_t const before = allocatedBytes();
        std::int64_t const helpBefore = ExactMemory::timesReserveWasUsed();
        bool isDone = false;
        bool hasFailed = false;
        {
            AllocationFailure const failure(request);
            try {
                goThroughAll(progress);
                isDone = true;
            } catch (std::bad_alloc const&) {
                isDone = false;
            }
            hasFailed = failure.hasHappened();
        }
        EXPECT_EQ(allocatedBytes(), before) << request;
        bool const hasHelp = ExactMemory::timesReserveWasUsed() > helpBefore; // of exact numbers, which take no refusal
        EXPECT_EQ(isDone, !hasFailed || hasHelp) << request;
        if (!hasFailed) {
            EXPECT_GT(request, 50);
            break;
        }
    }
}

} // namespace veldraw::tests

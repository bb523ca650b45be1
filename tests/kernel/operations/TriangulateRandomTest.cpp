// Random points whose coordinates are small whole numbers, so that they are at the same place and on one circle, and random loops.
#include "kernel/operations/Triangulate.h"
#include "tests/kernel/support/InterpolationFixture.h"
#include "tests/kernel/support/PlaneTriangles.h"

#include <functional>

namespace veldraw::tests {

using namespace kernel;

namespace {

using Places = std::vector<PlanePlace>;
using Loops = std::vector<Places>; // the last place of each is the first one again

constexpr int edge = 12; // of the square that points are in

/// Positive where @p place is to the left of the way from a to b. Exact for places of a fine grid.
long double turn(PlanePlace const& a, PlanePlace const& b, PlanePlace const& place)
{
    return (static_cast<long double>(b[0]) - a[0]) * (static_cast<long double>(place[1]) - a[1]) -
           (static_cast<long double>(b[1]) - a[1]) * (static_cast<long double>(place[0]) - a[0]);
}

/// Whether a ray from the place to the right crosses edges of the loops an odd number of times.
bool isWithin(Loops const& loops, PlanePlace const& place)
{
    bool result = false;
    for (Places const& loop : loops) {
        for (std::size_t at = 0; at + 1 < loop.size(); ++at) {
            PlanePlace const& a = loop[at];
            PlanePlace const& b = loop[at + 1];
            bool const isBetween = (a[1] > place[1]) != (b[1] > place[1]);
            result = result != (isBetween && (turn(a, b, place) > 0) == (b[1] > a[1]));
        }
    }
    return result;
}

bool isNearAnEdge(Loops const& loops, PlanePlace const& place)
{
    for (Places const& loop : loops) {
        for (std::size_t at = 0; at + 1 < loop.size(); ++at) {
            double const length = std::hypot(loop[at + 1][0] - loop[at][0], loop[at + 1][1] - loop[at][1]);
            if (std::abs(static_cast<double>(turn(loop[at], loop[at + 1], place))) < 1e-6 * (1 + length)) {
                return true;
            }
        }
    }
    return false;
}

/// Number of triangles that contain a place.
int trianglesAt(PlaneTriangles const& triangles, PlanePlace const& place)
{
    int count = 0;
    for (PlaneTriangles::Triangle const& triangle : triangles.triangles) {
        bool contains = true;
        for (std::size_t corner = 0; corner < 3; ++corner) {
            contains = contains && turn(triangles.places[triangle.corners[corner]],
                                        triangles.places[triangle.corners[(corner + 1) % 3]], place) >= 0;
        }
        count += contains ? 1 : 0;
    }
    return count;
}

class TriangulateRandomTest : public InterpolationFixture
{
protected:
    TriangulateRandomTest() { showPlane(); }

    PlanePlace onGrid()
    {
        return {static_cast<double>(random() % (edge + 1)), static_cast<double>(random() % (edge + 1))};
    }

    PlanePlace anywhere() { return {distribution(random), distribution(random)}; }

    int addZone(Places const& places)
    {
        std::vector<double> numbers;
        for (PlanePlace const& place : places) {
            numbers.insert(numbers.end(), place.begin(), place.end());
        }
        return addPoints({2, numbers}, wave, slope);
    }

    PlaneTriangles made() const { return PlaneTriangles(*dataSet->zones().back()); }

    /// Some points with the corners of the square.
    int addSources()
    {
        Places places{{0, 0}, {edge, 0}, {edge, edge}, {0, edge}};
        for (std::uint64_t left = random() % 60; left > 0; --left) {
            places.push_back(onGrid());
        }
        std::shuffle(places.begin(), places.end(), random);
        return addZone(places);
    }

    /// Looks at random places whether they are in one triangle if they are within the loops, else in none.
    void expectCovered(PlaneTriangles const& triangles, Loops const& loops)
    {
        for (int sample = 0; sample < 200; ++sample) {
            PlanePlace const place = anywhere();
            if (!isNearAnEdge(loops, place)) {
                ASSERT_EQ(trianglesAt(triangles, place), isWithin(loops, place) ? 1 : 0)
                    << place[0] << ", " << place[1];
            }
        }
    }

    /// Triangulates random points within random loops and looks at what comes of it. @return number of rounds without a result
    int triangulateWithinLoops(int rounds, std::function<PlanePlace()> const& corner)
    {
        int empty = 0;
        for (int round = 0; round < rounds && !HasFailure(); ++round) {
            SCOPED_TRACE(round);
            int const sources = addSources();
            Loops loops;
            NumberSet boundaries;
            for (std::uint64_t left = 1 + random() % 3; left > 0; --left) {
                loops.push_back(loopOf(2 + random() % 7, corner));
                int const zone = addZone(loops.back());
                field(zone, P) = Field();
                field(zone, Q) = Field();
                boundaries.insert(zone);
            }
            if (!session.perform(Triangulate(frame->id, {sources}, boundaries, false, 0.0))) {
                EXPECT_EQ(session.lastError(), "Nothing is within the boundary.");
                ++empty;
                continue;
            }
            PlaneTriangles const triangles = made();
            EXPECT_TRUE(triangles.areAllForward());
            expectCovered(triangles, loops);
            expectLinear(triangles);
        }
        return empty;
    }

    static Places loopOf(std::uint64_t corners, std::function<PlanePlace()> const& corner)
    {
        Places loop;
        for (; corners > 0; --corners) {
            loop.push_back(corner());
        }
        loop.push_back(loop.front());
        return loop;
    }

    void expectLinear(PlaneTriangles const& triangles)
    {
        std::vector<double> const values = valuesOf(dataSet->zoneCount(), Q);
        for (std::size_t at = 0; at < values.size(); ++at) {
            ASSERT_NEAR(values[at], slope(triangles.places[at].data()), 1e-11);
        }
    }

    std::mt19937 random{17};
    std::uniform_real_distribution<double> distribution{0.0, edge};
};

} // namespace

TEST_F(TriangulateRandomTest, CoversTheHullOnceWithoutAPointInACircle)
{
    for (int round = 0; round < 200; ++round) {
        int const zone = addSources();
        ASSERT_TRUE(session.perform(Triangulate(frame->id, {zone}, {}, false, 0.0)));
        PlaneTriangles const triangles = made();
        EXPECT_TRUE(triangles.areAllForward());
        EXPECT_EQ(triangles.nonDelaunayCount(), 0);
        EXPECT_EQ(triangles.eulerCharacteristic(), 1);
        EXPECT_EQ(triangles.doubleArea(), 2.0 * edge * edge);
        std::set<PlanePlace> const different(triangles.places.begin(), triangles.places.end());
        EXPECT_EQ(different.size(), triangles.places.size());
        for (PlaneTriangles::Triangle const& triangle : triangles.triangles) { // the plain definition
            PlanePlace const& a = triangles.places[triangle.corners[0]];
            PlanePlace const& b = triangles.places[triangle.corners[1]];
            PlanePlace const& c = triangles.places[triangle.corners[2]];
            for (PlanePlace const& d : triangles.places) {
                std::array<std::array<long double, 3>, 3> rows{};
                for (std::size_t row = 0; row < 3; ++row) {
                    PlanePlace const& corner = row == 0 ? a : row == 1 ? b : c;
                    long double const x = corner[0] - d[0];
                    long double const y = corner[1] - d[1];
                    rows[row] = {x, y, x * x + y * y};
                }
                long double const circle = rows[0][0] * (rows[1][1] * rows[2][2] - rows[1][2] * rows[2][1]) -
                                           rows[0][1] * (rows[1][0] * rows[2][2] - rows[1][2] * rows[2][0]) +
                                           rows[0][2] * (rows[1][0] * rows[2][1] - rows[1][1] * rows[2][0]);
                ASSERT_LE(circle, 0) << "round " << round;
            }
        }
    }
}

TEST_F(TriangulateRandomTest, CoversWhatIsWithinAnOddNumberOfLoopsOnceAndMixesALinearFunctionThere)
{
    EXPECT_LT(triangulateWithinLoops(150, [this] { return anywhere(); }), 50);
}

// Many edges touch, cover each other and cross at one place, and rounding puts crossings beyond the triangles beside them.
TEST_F(TriangulateRandomTest, CoversWhatIsWithinLoopsWhoseCornersHaveFewDifferentCoordinates)
{
    EXPECT_LT(triangulateWithinLoops(400, [this] { return onGrid(); }), 100);
}

// The line at y = 7 gets a corner at x = 8, which by rounding is below it, and the end of a line at x = 5 is then no more on it.
TEST_F(TriangulateRandomTest, CrossesALineThatRoundingHasMovedOverTheEndOfAnother)
{
    Places const places{{0, 6}, {12, 9},  {6, 12}, {6, 8},  {5, 1},   {8, 4},  {3, 9}, {0, 11}, {1, 8},
                        {8, 0}, {5, 4},   {5, 2},  {9, 11}, {11, 11}, {12, 0}, {0, 0}, {9, 10}, {1, 6},
                        {4, 1}, {12, 12}, {4, 6},  {3, 7},  {11, 12}, {11, 1}, {3, 6}, {3, 4},  {9, 8},
                        {2, 3}, {11, 6},  {2, 5},  {5, 10}, {0, 9},   {0, 12}, {7, 3}, {7, 7},  {0, 10}};
    Loops const loops{{{9, 7}, {0, 7}, {9, 7}},
                      {{12, 6}, {10, 0}, {5, 7}, {6, 1}, {9, 10}, {7, 2}, {3, 0}, {7, 10}, {12, 6}}};
    int const sources = addZone(places);
    NumberSet boundaries;
    for (Places const& loop : loops) {
        boundaries.insert(addZone(loop));
    }
    ASSERT_TRUE(session.perform(Triangulate(frame->id, {sources}, boundaries, false, 0.0))) << session.lastError();
    expectCovered(made(), loops);
}

} // namespace veldraw::tests

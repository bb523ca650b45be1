#include "kernel/mesh/CellMap.h"

#include <cmath>
#include <gtest/gtest.h>
#include <random>
#include <vector>

namespace veldraw::tests {

using namespace kernel;
using Shape = Connectivity::Shape;

namespace {

using Exact = std::array<long double, 3>;

constexpr Shape shapesWithMaps[] = {Shape::Triangle, Shape::Quad,  Shape::Tetrahedron,
                                    Shape::Pyramid,  Shape::Prism, Shape::Brick};

/// Corners of the reference cells.
std::vector<Point> unitCell(Shape shape)
{
    switch (shape) {
    case Shape::Triangle:
        return {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}};
    case Shape::Quad:
        return {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}};
    case Shape::Tetrahedron:
        return {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
    case Shape::Pyramid:
        return {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}, {0, 0, 1}};
    case Shape::Prism:
        return {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}, {1, 0, 1}, {0, 1, 1}};
    default:
        return {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}, {0, 0, 1}, {1, 0, 1}, {1, 1, 1}, {0, 1, 1}};
    }
}

class CellMapTest : public testing::Test
{
protected:
    double number(double low, double high) { return std::uniform_real_distribution<double>(low, high)(random); }

    /// A cell with its corners moved by up to @p shift, turned, stretched and put somewhere; surfaces keep to their plane.
    std::vector<Point> someCell(Shape shape, double shift)
    {
        std::vector<Point> corners = unitCell(shape);
        Point rows[3];
        for (Point& row : rows) {
            row = {number(-1, 1), number(-1, 1), number(-1, 1)};
        }
        for (std::size_t axis = 0; axis < 3; ++axis) {
            rows[axis][axis] += rows[axis][axis] < 0 ? -2 : 2; // so that the cell is not flat
        }
        Point const origin{number(-9, 9), number(-9, 9), number(-9, 9)};
        for (Point& corner : corners) {
            Point moved{};
            for (std::size_t axis = 0; axis < 3; ++axis) {
                bool const isAcross = axis == 2 && Connectivity::isFace(shape);
                moved[axis] = corner[axis] + (isAcross ? 0.0 : number(-shift, shift));
            }
            for (std::size_t axis = 0; axis < 3; ++axis) {
                corner[axis] =
                    origin[axis] + rows[axis][0] * moved[0] + rows[axis][1] * moved[1] + rows[axis][2] * moved[2];
            }
        }
        return corners;
    }

    /// Shares of the corners at random: products of numbers between 0 and 1, as they are in the cell.
    std::vector<long double> someShares(Shape shape)
    {
        long double const r = number(0, 1);
        long double const s = number(0, 1);
        long double const t = Connectivity::isFace(shape) ? 0 : number(0, 1);
        long double const root = std::sqrt(r);
        std::vector<long double> triangle{1 - root, root * (1 - s), root * s};
        std::vector<long double> square{(1 - r) * (1 - s), r * (1 - s), r * s, (1 - r) * s};
        std::vector<long double> shares =
            shape == Shape::Triangle || shape == Shape::Tetrahedron || shape == Shape::Prism ? triangle : square;
        std::size_t const base = shares.size();
        if (Connectivity::isFace(shape)) {
            return shares;
        }
        bool const hasApex = shape == Shape::Tetrahedron || shape == Shape::Pyramid;
        for (std::size_t corner = 0; corner < base; ++corner) {
            if (!hasApex) {
                shares.push_back(shares[corner] * t);
            }
            shares[corner] *= 1 - t;
        }
        if (hasApex) {
            shares.push_back(t);
        }
        return shares;
    }

    static Point mixed(std::vector<Point> const& corners, std::vector<long double> const& shares)
    {
        Exact sum{};
        for (std::size_t corner = 0; corner < corners.size(); ++corner) {
            for (std::size_t axis = 0; axis < 3; ++axis) {
                sum[axis] += shares[corner] * static_cast<long double>(corners[corner][axis]);
            }
        }
        return {static_cast<double>(sum[0]), static_cast<double>(sum[1]), static_cast<double>(sum[2])};
    }

    /// Finds the place, and what the weights there make of the corners; nothing when it is not found.
    static std::vector<long double> weightsAt(CellMap const& map, Point const& place)
    {
        std::optional<Point> const reference = map.locate(place);
        if (!reference) {
            return {};
        }
        double weights[CellMap::mostCorners];
        std::size_t const count = map.weigh(*reference, weights);
        return {weights, weights + count};
    }

    static double distance(Point const& a, Point const& b)
    {
        return std::max({std::abs(a[0] - b[0]), std::abs(a[1] - b[1]), std::abs(a[2] - b[2])});
    }

    std::mt19937 random{7};
};

} // namespace

TEST_F(CellMapTest, FindsThePlaceThatTheShapeFunctionsGive)
{
    for (Shape const shape : shapesWithMaps) {
        for (int round = 0; round < 3000; ++round) {
            std::vector<Point> const corners = someCell(shape, 0.15);
            std::vector<long double> const shares = someShares(shape);
            CellMap map;
            map.set(shape, corners.data());
            Point const place = mixed(corners, shares);
            std::vector<long double> const weights = weightsAt(map, place);
            ASSERT_EQ(weights.size(), corners.size()) << "shape " << int(shape) << " round " << round;
            EXPECT_LT(distance(mixed(corners, weights), place), 1e-13);
            for (std::size_t corner = 0; corner < corners.size(); ++corner) {
                EXPECT_NEAR(static_cast<double>(weights[corner]), static_cast<double>(shares[corner]), 1e-10);
            }
        }
    }
}

TEST_F(CellMapTest, GivesEachCornerItself)
{
    for (Shape const shape : shapesWithMaps) {
        for (int round = 0; round < 200; ++round) {
            std::vector<Point> const corners = someCell(shape, 0.15);
            CellMap map;
            map.set(shape, corners.data());
            for (std::size_t corner = 0; corner < corners.size(); ++corner) {
                std::vector<long double> const weights = weightsAt(map, corners[corner]);
                ASSERT_EQ(weights.size(), corners.size());
                EXPECT_NEAR(static_cast<double>(weights[corner]), 1, 1e-12);
            }
        }
    }
}

TEST_F(CellMapTest, FindsPlacesInStronglyWarpedCells)
{
    for (Shape const shape : shapesWithMaps) {
        for (int round = 0; round < 3000; ++round) {
            std::vector<Point> const corners = someCell(shape, 0.3);
            CellMap map;
            map.set(shape, corners.data());
            Point const place = mixed(corners, someShares(shape));
            std::vector<long double> const weights = weightsAt(map, place);
            ASSERT_EQ(weights.size(), corners.size()) << "shape " << int(shape) << " round " << round;
            EXPECT_LT(distance(mixed(corners, weights), place), 1e-12);
        }
    }
}

TEST_F(CellMapTest, FindsPlacesInCellsThatRunTheOtherWayRound)
{
    for (Shape const shape : shapesWithMaps) {
        for (int round = 0; round < 500; ++round) {
            std::vector<Point> corners = someCell(shape, 0.15);
            std::for_each(corners.begin(), corners.end(), [](Point& corner) { corner[0] = -corner[0]; });
            CellMap map;
            map.set(shape, corners.data());
            Point const place = mixed(corners, someShares(shape));
            std::vector<long double> const weights = weightsAt(map, place);
            ASSERT_EQ(weights.size(), corners.size());
            EXPECT_LT(distance(mixed(corners, weights), place), 1e-12);
        }
    }
}

TEST_F(CellMapTest, DoesNotContainWhatIsBeyondAFace)
{
    constexpr double beyond = 1e-7;
    for (Shape const shape : shapesWithMaps) {
        bool const isFace = Connectivity::isFace(shape);
        for (int round = 0; round < 500; ++round) {
            std::vector<Point> const corners = unitCell(shape);
            double const along = number(0.1, 0.4);
            double const across = number(0.1, 0.4);
            double const up = isFace ? 0.0 : number(0.1, 0.15);
            CellMap map;
            map.set(shape, corners.data());
            EXPECT_TRUE(map.locate({along, across, up}));
            EXPECT_FALSE(map.locate({-beyond, across, up}));
            EXPECT_FALSE(map.locate({along, -beyond, up}));
            EXPECT_FALSE(map.locate({along, across, isFace ? 1e-3 : -beyond}));
            bool const isNarrow = shape == Shape::Triangle || shape == Shape::Prism || shape == Shape::Tetrahedron;
            double const end = shape == Shape::Tetrahedron ? 1 - across - up
                               : shape == Shape::Pyramid   ? 1 - up
                               : isNarrow                  ? 1 - across
                                                           : 1;
            EXPECT_TRUE(map.locate({end - beyond, across, up}));
            EXPECT_FALSE(map.locate({end + beyond, across, up}));
        }
    }
}

TEST_F(CellMapTest, TakesPlacesOnASurfaceWithinASmallDistance)
{
    for (Shape const shape : {Shape::Triangle, Shape::Quad}) {
        std::vector<Point> corners = unitCell(shape);
        std::for_each(corners.begin(), corners.end(), [](Point& corner) { corner[2] = 5; });
        CellMap map;
        map.set(shape, corners.data());
        double const within = CellMap::surfaceTolerance; // of a size above 1
        EXPECT_TRUE(map.locate({0.3, 0.3, 5 + within}));
        EXPECT_TRUE(map.locate({0.3, 0.3, 5 - within}));
        EXPECT_FALSE(map.locate({0.3, 0.3, 5 + 3 * within}));
        EXPECT_FALSE(map.locate({0.3, 0.3, 5 - 3 * within}));
    }
}

TEST_F(CellMapTest, FindsPlacesInBricksWithCornersThatCoincide)
{
    std::size_t const kinds[][8] = {{0, 1, 2, 2, 4, 5, 6, 6},  // a prism
                                    {0, 1, 2, 3, 4, 4, 4, 4},  // a pyramid
                                    {0, 1, 2, 2, 4, 4, 4, 4},  // a tetrahedron
                                    {0, 1, 2, 3, 4, 5, 2, 3},  // a wedge
                                    {0, 0, 2, 3, 4, 5, 6, 7}}; // with one edge gone
    for (auto const& kind : kinds) {
        for (int round = 0; round < 500; ++round) {
            std::vector<Point> const whole = someCell(Shape::Brick, 0.1);
            std::vector<Point> corners;
            std::transform(std::begin(kind), std::end(kind), std::back_inserter(corners),
                           [&](std::size_t corner) { return whole[corner]; });
            CellMap map;
            map.set(Shape::Brick, corners.data());
            Point const place = mixed(corners, someShares(Shape::Brick));
            std::vector<long double> const weights = weightsAt(map, place);
            ASSERT_EQ(weights.size(), corners.size()) << "kind " << &kind - &kinds[0] << " round " << round;
            EXPECT_LT(distance(mixed(corners, weights), place), 1e-12);
            for (Point const& corner : corners) {
                ASSERT_EQ(weightsAt(map, corner).size(), corners.size());
                EXPECT_LT(distance(mixed(corners, weightsAt(map, corner)), corner), 1e-12);
            }
        }
    }
}

TEST_F(CellMapTest, KeepsToThePlaceInThinCells)
{
    for (Shape const shape : shapesWithMaps) {
        for (double const thickness : {1e-3, 1e-6, 1e-9}) {
            for (int round = 0; round < 200; ++round) {
                std::vector<Point> corners = unitCell(shape);
                double const slope = number(-1, 1);
                std::size_t const across = round % 2 == 0 ? 0 : 1;
                std::size_t const along = 1 - across;
                for (Point& corner : corners) { // thin, and slanting
                    corner[across] = corner[across] * thickness + slope * corner[along];
                }
                CellMap map;
                map.set(shape, corners.data());
                Point const place = mixed(corners, someShares(shape));
                std::vector<long double> const weights = weightsAt(map, place);
                ASSERT_EQ(weights.size(), corners.size()) << "shape " << int(shape) << " thickness " << thickness;
                EXPECT_LT(distance(mixed(corners, weights), place), 1e-14);
                Point beyond{0.3, 0.3, 0.1};
                beyond[across] = 0.3 * slope + 2 * thickness + 1e-12;
                EXPECT_FALSE(map.locate(beyond));
            }
        }
    }
}

TEST_F(CellMapTest, ContainsNothingWhenTheCellIsFlat)
{
    for (Shape const shape : shapesWithMaps) {
        std::size_t const across = Connectivity::isFace(shape) ? 1 : 2;
        std::vector<Point> corners = unitCell(shape);
        std::for_each(corners.begin(), corners.end(), [across](Point& corner) { corner[across] = 0.5; });
        CellMap map;
        map.set(shape, corners.data());
        for (Point const& corner : corners) {
            EXPECT_FALSE(map.locate(corner));
        }
        corners.assign(corners.size(), Point{1, 2, 3});
        map.set(shape, corners.data());
        EXPECT_FALSE(map.locate({1, 2, 3}));
    }
}

TEST_F(CellMapTest, FindsPlacesInCellsOfAnySize)
{
    for (Shape const shape : shapesWithMaps) {
        for (double const size : {1e-150, 1e-30, 1e30, 1e150, 1e300}) {
            std::vector<Point> corners = someCell(shape, 0.15);
            for (Point& corner : corners) {
                corner = {corner[0] * size, corner[1] * size, corner[2] * size};
            }
            CellMap map;
            map.set(shape, corners.data());
            Point const place = mixed(corners, someShares(shape));
            std::vector<long double> const weights = weightsAt(map, place);
            ASSERT_EQ(weights.size(), corners.size()) << "shape " << int(shape) << " size " << size;
            EXPECT_LT(distance(mixed(corners, weights), place) / size, 1e-11);
        }
    }
}

TEST_F(CellMapTest, GivesFiniteWeightsWhateverTheCornersAre)
{
    auto const anyNumber = [this] {
        double const signs[] = {0, 1, -1, 0.5};
        double const sizes[] = {1, 1, 1, 1e-310, 1e-17, 1e17, 1e308};
        return signs[random() % 4] * sizes[random() % 7];
    };
    int found = 0;
    for (int round = 0; round < 200000; ++round) {
        Shape const shape = shapesWithMaps[random() % 6];
        std::vector<Point> corners = unitCell(shape);
        std::for_each(corners.begin(), corners.end(), [&](Point& corner) {
            corner = {anyNumber(), anyNumber(), anyNumber()};
        });
        CellMap map;
        map.set(shape, corners.data());
        for (Point const& place : {corners[0], corners[2], mixed(corners, someShares(shape))}) {
            long double sum = 0;
            std::vector<long double> const weights = weightsAt(map, place);
            for (long double const weight : weights) {
                EXPECT_TRUE(weight >= -0.01L && weight <= 1.01L);
                sum += weight;
            }
            found += weights.empty() ? 0 : 1;
            EXPECT_NEAR(static_cast<double>(sum), weights.empty() ? 0 : 1, 1e-12);
        }
    }
    EXPECT_GT(found, 10000);
}

TEST_F(CellMapTest, ContainsNothingWhereACellWithoutSizeComesAfterAnother)
{
    CellMap map;
    for (Shape const shape : shapesWithMaps) {
        std::vector<Point> const corners = unitCell(shape);
        map.set(shape, corners.data());
        ASSERT_FALSE(map.isFlat());
        ASSERT_TRUE(map.locate(corners[0]));
        std::vector<Point> const onePlace(corners.size(), corners[0]);
        map.set(shape, onePlace.data());
        EXPECT_TRUE(map.isFlat());
        EXPECT_FALSE(map.locate(corners[0]));
    }
}

} // namespace veldraw::tests

#include "kernel/compute/DenseKriging.h"

#include <gtest/gtest.h>
#include <random>

namespace veldraw::tests {

using namespace kernel;

namespace {

/// Scattered points in a square, and what a quadratic of the place within the square is there.
struct QuadraticInASquare
{
    std::array<double, 2> corner;
    double side;

    double at(double x, double y) const
    {
        double const u = (x - corner[0]) / side;
        double const v = (y - corner[1]) / side;
        return 1.0 + 2.0 * u - 3.0 * v + 4.0 * u * u - 5.0 * u * v + 6.0 * v * v;
    }

    PointColumns points(std::size_t count) const
    {
        std::mt19937 random(7);
        std::uniform_real_distribution<double> share(0.0, 1.0);
        PointColumns columns;
        for (std::size_t point = 0; point < count; ++point) {
            columns[0].push_back(corner[0] + side * share(random));
            columns[1].push_back(corner[1] + side * share(random));
        }
        return columns;
    }

    std::vector<double> values(PointColumns const& points) const
    {
        std::vector<double> numbers;
        for (std::size_t point = 0; point < points[0].size(); ++point) {
            numbers.push_back(at(points[0][point], points[1][point]));
        }
        return numbers;
    }
};

double estimateAt(DenseKriging const& kriging, std::vector<double> const& place)
{
    std::vector<double> estimates;
    kriging.estimate(place, estimates, Progress());
    return estimates.at(0);
}

class DriftInASquare : public testing::TestWithParam<QuadraticInASquare>
{
};

TEST_P(DriftInASquare, IsReproducedWhereverTheSquareIsAndHoweverLarge)
{
    QuadraticInASquare const& square = GetParam();
    PointColumns const points = square.points(200);
    Progress progress;
    DenseKriging kriging({square.side, 0.25, Drift_Quadratic}, points, progress);
    EXPECT_EQ(kriging.drift(), Drift_Quadratic);
    kriging.addVariable(square.values(points), progress);
    for (double const share : {0.1, 0.5, 1.5}) {
        double const x = square.corner[0] + share * square.side;
        double const y = square.corner[1] + (1.0 - share) * square.side;
        EXPECT_NEAR(estimateAt(kriging, {x, y}), square.at(x, y), 1e-6) << share;
    }
}

INSTANTIATE_TEST_SUITE_P(Places, DriftInASquare,
                         testing::Values(QuadraticInASquare{{0.0, 0.0}, 1.0}, QuadraticInASquare{{0.0, 0.0}, 1e-9},
                                         QuadraticInASquare{{0.0, 0.0}, 1e9}, QuadraticInASquare{{1e7, 0.0}, 1.0},
                                         QuadraticInASquare{{0.0, -1e7}, 1.0}));

TEST(DenseKrigingTest, TakesTheMeanOfPointsWhoseDistanceIsLostInRounding)
{
    PointColumns const points{{{0.0, 1e-17, 1.0}, {0.0, 0.0, 0.0}, {}}};
    Progress progress;
    DenseKriging kriging({2.0, 0.0, Drift_None}, points, progress);
    kriging.addVariable({2.0, 4.0, 7.0}, progress);
    EXPECT_NEAR(estimateAt(kriging, {0.0, 0.0}), 3.0, 1e-6);
    EXPECT_NEAR(estimateAt(kriging, {1.0, 0.0}), 7.0, 1e-6);
}

TEST(DenseKrigingTest, DoesAsMuchWorkAsItSays)
{
    QuadraticInASquare const square{{0.0, 0.0}, 1.0};
    for (std::size_t const count : {1, 128, 129, 600}) {
        Progress progress;
        DenseKriging const kriging({0.1, 0.0, Drift_None}, square.points(count), progress);
        EXPECT_EQ(progress.done(), DenseKriging::workFor(static_cast<std::int64_t>(count))) << count;
    }
}

} // namespace
} // namespace veldraw::tests

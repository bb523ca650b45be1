#include "kernel/compute/SpatialOrder.h"

#include "tests/kernel/support/ScatteredPoints.h"
#include "tests/support/Threads.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace veldraw::tests {

using namespace kernel;

namespace {

std::vector<std::uint32_t> sortedInSpace(ScatteredPoints const& points)
{
    std::vector<std::uint32_t> numbers = points.numbers();
    Progress progress;
    sortInSpace(points, numbers, progress);
    return numbers;
}

double pathLength(ScatteredPoints const& points, std::vector<std::uint32_t> const& order)
{
    double length = 0.0;
    for (std::size_t at = 1; at < order.size(); ++at) {
        length += std::sqrt(points.squaredDistance(order[at], points.at(order[at - 1])));
    }
    return length;
}

} // namespace

TEST(SpatialOrderTest, KeepsEveryPointAndMakesTheWayThroughThemShort)
{
    for (int const axes : {2, 3}) {
        ScatteredPoints const points = ScatteredPoints::random(axes, 20011, 7);
        std::vector<std::uint32_t> order = sortedInSpace(points);
        EXPECT_LT(pathLength(points, order), 0.1 * pathLength(points, points.numbers()));
        std::sort(order.begin(), order.end());
        EXPECT_EQ(order, points.numbers());
    }
}

TEST(SpatialOrderTest, PutsEqualPointsSideBySideAmongCrowdsThatDifferByTheirLastBits)
{
    std::vector<double> places{0.0, 0.0, 1.0, 1.0};
    std::mt19937_64 generator(3);
    for (int point = 0; point < 5000; ++point) { // 1000 different places, all in the smallest cell of the box
        places.push_back(0.5 + 1e-12 * static_cast<double>(generator() % 1000));
        places.push_back(0.25);
    }
    ScatteredPoints const points(2, places);
    std::vector<std::uint32_t> const order = sortedInSpace(points);
    std::vector<double> seen;
    for (std::uint32_t const point : order) {
        double const x = points.at(point)[0] + 2.0 * points.at(point)[1];
        if (seen.empty() || seen.back() < x || seen.back() > x) {
            EXPECT_EQ(std::count(seen.begin(), seen.end(), x), 0);
            seen.push_back(x);
        }
    }
    EXPECT_GT(seen.size(), 900U);
}

TEST(SpatialOrderTest, TakesPointsThatAreAllTheSameOrDifferByDenormalNumbers)
{
    ScatteredPoints const same(3, std::vector<double>(3 * 300, 4.0));
    EXPECT_EQ(sortedInSpace(same), same.numbers());
    std::vector<double> places;
    for (int point = 0; point < 300; ++point) {
        places.insert(places.end(), {5e-324 * static_cast<double>(point % 3), 0.0});
    }
    ScatteredPoints const tiny(2, places);
    std::vector<std::uint32_t> const order = sortedInSpace(tiny);
    auto const before = [&](std::uint32_t a, std::uint32_t b) { return tiny.at(a)[0] < tiny.at(b)[0]; };
    EXPECT_TRUE(std::is_sorted(order.begin(), order.end(), before));
}

TEST(SpatialOrderTest, IsTheSameForAnyNumberOfThreads)
{
    ScatteredPoints const points = ScatteredPoints::random(3, 50021, 5);
    auto const sortedOn = [&](int threads) {
        Threads const some(threads);
        return sortedInSpace(points);
    };
    EXPECT_EQ(sortedOn(1), sortedOn(16));
}

TEST(SpatialOrderTest, EndsWhenItIsCancelled)
{
    ScatteredPoints const points = ScatteredPoints::random(3, 5000, 5);
    std::vector<std::uint32_t> numbers = points.numbers();
    Progress progress;
    progress.interrupt();
    EXPECT_THROW(sortInSpace(points, numbers, progress), Interrupted);
}

} // namespace veldraw::tests

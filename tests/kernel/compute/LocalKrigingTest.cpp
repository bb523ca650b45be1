#include "kernel/compute/LocalKriging.h"

#include "kernel/base/Progress.h"
#include "tests/kernel/support/ReferenceKriging.h"
#include "tests/kernel/support/ScatteredPoints.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>

namespace veldraw::tests {

using namespace kernel;

namespace {

/// Points in a plane, and targets whose neighbours are chosen by hand.
class LocalKrigingTest : public testing::Test
{
protected:
    static constexpr double range = 0.9;
    static constexpr double nugget = 0.05;

    void add(double const* target, std::vector<std::uint32_t> const& places)
    {
        targets.insert(targets.end(), target, target + 2);
        for (std::uint32_t const place : places) {
            neighborhoods.neighbors.push_back({points.squaredDistance(search->point(place), target), place});
        }
        neighborhoods.begins.push_back(neighborhoods.neighbors.size());
    }

    ReferenceKriging::Place placeOf(std::uint32_t place) const
    {
        double const* const point = points.at(search->point(place));
        return {point[0], point[1], 0.0};
    }

    /// Compares all weights with those of one dense system for each target.
    void checkWeights()
    {
        LocalKriging kriging(*search, {range, nugget, Drift_None}, 2, progress);
        std::vector<double> weights;
        EXPECT_EQ(kriging.weigh(targets.data(), neighborhoods, weights), 0);
        for (std::size_t target = 0; target < neighborhoods.targetCount(); ++target) {
            std::vector<ReferenceKriging::Place> places;
            for (std::size_t at = neighborhoods.begins[target]; at < neighborhoods.begins[target + 1]; ++at) {
                places.push_back(placeOf(neighborhoods.neighbors[at].place));
            }
            ReferenceKriging const reference(places, 2, 0, range, nugget);
            std::vector<double> const expected = reference.weights({targets[2 * target], targets[2 * target + 1], 0.0});
            for (std::size_t at = 0; at < expected.size(); ++at) {
                ASSERT_NEAR(weights[neighborhoods.begins[target] + at], expected[at], 1e-12) << target << ' ' << at;
            }
        }
    }

    ScatteredPoints const points = ScatteredPoints::random(2, 9, 4);
    Progress progress;
    std::unique_ptr<NeighborSearch> const search = NeighborSearch::make(points, points.numbers(), progress);
    std::vector<double> targets;
    Neighborhoods neighborhoods{{}, {0}};
};

} // namespace

TEST_F(LocalKrigingTest, TellsSetsOfPointsApartWhoseNumbersAndSquaresAddUpToTheSame)
{
    double const target[] = {0.4, 0.6};
    add(target, {0, 1, 5, 6});
    add(target, {2, 0, 3, 7});
    add(target, {7, 3, 0, 2});
    add(target, {0, 1, 6, 5});
    checkWeights();
}

TEST_F(LocalKrigingTest, SharesAFactorizationWhateverTheOrderOfTheNeighbours)
{
    std::mt19937 random(11);
    std::uniform_real_distribution<double> coordinate;
    std::vector<std::uint32_t> places(points.count());
    std::iota(places.begin(), places.end(), 0U);
    for (int target = 0; target < 5003; ++target) {
        double const place[] = {coordinate(random), coordinate(random)};
        std::size_t const count = 3 + random() % 3;
        if (random() % 4 == 0) {
            std::shuffle(places.begin(), places.end(), random);
        } else {
            std::shuffle(places.begin(), places.begin() + static_cast<std::ptrdiff_t>(count), random);
        }
        add(place, {places.begin(), places.begin() + static_cast<std::ptrdiff_t>(count)});
    }
    checkWeights();
}

} // namespace veldraw::tests

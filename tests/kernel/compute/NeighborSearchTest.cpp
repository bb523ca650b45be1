#include "kernel/compute/NeighborSearch.h"

#include "tests/kernel/support/LookCounter.h"
#include "tests/kernel/support/ScatteredPoints.h"

#include <algorithm>
#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <random>

namespace veldraw::tests {

using namespace kernel;

namespace {

using PointNumbers = std::vector<std::uint32_t>;
using Found = std::pair<double, std::uint32_t>; // squared distance and number

std::unique_ptr<NeighborSearch> searchIn(ScatteredPoints const& points)
{
    Progress progress;
    return NeighborSearch::make(points, points.numbers(), progress);
}

std::vector<Found> sortedByDistance(ScatteredPoints const& points, double const* target)
{
    std::vector<Found> all;
    for (std::uint32_t const point : points.numbers()) {
        all.emplace_back(points.squaredDistance(point, target), point);
    }
    std::sort(all.begin(), all.end());
    return all;
}

PointNumbers numbersOf(std::vector<Found> const& found)
{
    PointNumbers numbers;
    std::transform(found.begin(), found.end(), std::back_inserter(numbers),
                   [](Found const& one) { return one.second; });
    return numbers;
}

PointNumbers nearestByHand(ScatteredPoints const& points, double const* target, std::size_t count)
{
    std::vector<Found> all = sortedByDistance(points, target);
    all.resize(std::min(count, all.size()));
    return numbersOf(all);
}

/// A share of each octant, and what is left of the count from those that come next.
PointNumbers octantsByHand(ScatteredPoints const& points, double const* target, std::size_t count)
{
    std::size_t const octants = std::size_t{1} << points.dimensions();
    std::vector<std::vector<Found>> lists(octants);
    for (Found const& found : sortedByDistance(points, target)) {
        lists[points.octant(found.second, target)].push_back(found);
    }
    std::vector<Found> chosen;
    std::vector<Found> next;
    for (std::vector<Found> const& list : lists) {
        for (std::size_t at = 0; at < std::min(list.size(), count / octants + 1); ++at) {
            (at < count / octants ? chosen : next).push_back(list[at]);
        }
    }
    std::sort(next.begin(), next.end());
    next.resize(std::min(next.size(), count % octants));
    chosen.insert(chosen.end(), next.begin(), next.end());
    std::sort(chosen.begin(), chosen.end());
    return numbersOf(chosen);
}

/// Compares all neighborhoods of some targets with those found by hand.
void expectFound(ScatteredPoints const& points, ScatteredPoints const& targets, NeighborChoice const& choice)
{
    auto const search = searchIn(points);
    Neighborhoods found;
    Progress progress;
    search->find(targets.places().data(), targets.count(), choice, progress, found);
    ASSERT_EQ(found.targetCount(), targets.count());
    for (std::size_t target = 0; target < targets.count(); ++target) {
        PointNumbers numbers;
        for (std::size_t at = found.begins[target]; at < found.begins[target + 1]; ++at) {
            numbers.push_back(search->point(found.neighbors[at].place));
            EXPECT_EQ(found.neighbors[at].squaredDistance, points.squaredDistance(numbers.back(), targets.at(target)));
        }
        auto const count = static_cast<std::size_t>(choice.count);
        EXPECT_EQ(numbers, choice.selection == PtSelection_Octant ? octantsByHand(points, targets.at(target), count)
                                                                  : nearestByHand(points, targets.at(target), count))
            << "target " << target << ", " << choice.count << " neighbors";
    }
}

/// Places of which each is a step of random length and direction from the one before.
std::vector<double> walk(int axes, double longestStep)
{
    std::mt19937 random(6);
    std::uniform_real_distribution<double> step(-longestStep, longestStep);
    std::vector<double> places(static_cast<std::size_t>(axes), 0.4);
    for (std::size_t before = 0; places.size() < 70 * static_cast<std::size_t>(axes); ++before) {
        places.push_back(places[before] + step(random));
    }
    return places;
}

/// Points of a lattice, of which many are at equal distances from each other.
ScatteredPoints lattice(int axes, int side)
{
    std::vector<double> places;
    for (int i = 0; i < side; ++i) {
        for (int j = 0; j < side; ++j) {
            for (int k = 0; k < (axes == 3 ? side : 1); ++k) {
                places.insert(places.end(), {static_cast<double>(i), static_cast<double>(j)});
                if (axes == 3) {
                    places.push_back(static_cast<double>(k));
                }
            }
        }
    }
    return {axes, places};
}

} // namespace

TEST(NeighborSearchTest, FindsTheNearestOfScatteredPoints)
{
    for (int const axes : {2, 3}) {
        ScatteredPoints const points = ScatteredPoints::random(axes, 5003, 1);
        ScatteredPoints const targets = ScatteredPoints::random(axes, 31, 2);
        for (std::int64_t const count : {1, 2, 8, 17, 64, 65, 300}) {
            expectFound(points, targets, {PtSelection_NearestN, count});
        }
    }
}

// Leaves are looked up once for several of them.
TEST(NeighborSearchTest, FindsTheNearestForTargetsThatAreNearEachOther)
{
    for (int const axes : {2, 3}) {
        ScatteredPoints const points = ScatteredPoints::random(axes, 2003, 5);
        for (double const step : {0.0, 1e-4, 1e-3, 1e-2, 0.1}) {
            for (std::int64_t const count : {1, 2, 16, 40, 300}) {
                expectFound(points, {axes, walk(axes, step)}, {PtSelection_NearestN, count});
            }
        }
        expectFound(lattice(axes, 12), lattice(axes, 5), {PtSelection_NearestN, 9});
    }
}

TEST(NeighborSearchTest, SharesOctantsOutEvenly)
{
    for (int const axes : {2, 3}) {
        ScatteredPoints const points = ScatteredPoints::random(axes, 5003, 3);
        ScatteredPoints const targets = ScatteredPoints::random(axes, 23, 4);
        for (std::int64_t const count : {1, 3, 8, 13, 16, 100, 600}) {
            expectFound(points, targets, {PtSelection_Octant, count});
        }
    }
}

TEST(NeighborSearchTest, TakesTheLowerNumberWhereDistancesAreEqual)
{
    for (int const axes : {2, 3}) {
        ScatteredPoints const points = lattice(axes, 9);
        for (std::int64_t const count : {1, 5, 8, 27, 90}) {
            expectFound(points, lattice(axes, 4), {PtSelection_NearestN, count});
            expectFound(points, lattice(axes, 4), {PtSelection_Octant, count});
        }
    }
}

// Their distances are put in order all at once.
TEST(NeighborSearchTest, TakesTheLowerNumberOfEqualDistancesFromTargetsThatAreNearEachOther)
{
    for (int const axes : {2, 3}) {
        std::vector<double> targets = walk(axes, 0.5);
        for (double& coordinate : targets) {
            coordinate = 4.0 + std::round(4.0 * coordinate) / 4.0;
        }
        for (std::int64_t const count : {1, 6, 16, 33, 63, 64}) {
            expectFound(lattice(axes, 9), {axes, targets}, {PtSelection_NearestN, count});
        }
    }
}

TEST(NeighborSearchTest, FindsAllOfFewPoints)
{
    for (std::size_t const size : {1U, 2U, 7U, 8U, 9U, 63U, 64U, 65U, 513U}) {
        ScatteredPoints const points = ScatteredPoints::random(3, size, 9);
        ScatteredPoints const targets = ScatteredPoints::random(3, 5, 10);
        expectFound(points, targets, {PtSelection_NearestN, 1000});
        expectFound(points, targets, {PtSelection_Octant, 1000});
        expectFound(points, targets, {PtSelection_NearestN, 3});
        expectFound(points, targets, {PtSelection_Octant, 3});
    }
}

TEST(NeighborSearchTest, TakesPointsInAPlaneOnALineAndAtOnePlace)
{
    std::vector<double> plane;
    std::vector<double> line;
    for (double at = 0.0; at < 700.0; at += 1.0) {
        plane.insert(plane.end(), {std::sin(at), std::cos(3.0 * at), 2.0});
        line.insert(line.end(), {at, 2.0 * at, -at});
    }
    ScatteredPoints const targets = ScatteredPoints::random(3, 23, 12);
    std::vector<ScatteredPoints> all;
    all.emplace_back(3, plane);
    all.emplace_back(3, line);
    all.emplace_back(3, std::vector<double>(900, 0.5));
    for (ScatteredPoints const& points : all) {
        expectFound(points, targets, {PtSelection_NearestN, 12});
        expectFound(points, targets, {PtSelection_Octant, 12});
    }
}

TEST(NeighborSearchTest, FindsTargetsFarOutside)
{
    ScatteredPoints const points = ScatteredPoints::random(3, 3001, 21);
    ScatteredPoints const targets(3, {1e6, 0.0, 0.0, -4.0, 17.0, 0.5, 0.5, 0.5, -1e9});
    expectFound(points, targets, {PtSelection_NearestN, 8});
    expectFound(points, targets, {PtSelection_Octant, 8});
}

TEST(NeighborSearchTest, EndsWhenItIsCancelled)
{
    ScatteredPoints const points = ScatteredPoints::random(3, 5000, 5);
    Progress progress;
    progress.interrupt();
    EXPECT_THROW(NeighborSearch::make(points, points.numbers(), progress), Interrupted);
}

TEST(NeighborSearchTest, LooksForACancelAmongTheNeighborsOfOneTarget)
{
    ScatteredPoints const points = ScatteredPoints::random(3, 100003, 5);
    auto const search = searchIn(points);
    std::array<double, 3> const target{0.5, 0.5, 0.5};
    Neighborhoods found;
    for (PtSelection_e const selection : {PtSelection_NearestN, PtSelection_Octant}) {
        LookCounter counter;
        search->find(target.data(), 1, {selection, 80000}, counter, found);
        EXPECT_GT(counter.looks(), 15) << "in the tree and while the neighbors are sorted";
        for (std::int64_t const look : {std::int64_t{1}, counter.looks()}) { // in the tree, while they are sorted
            LookCounter last(look);
            EXPECT_THROW(search->find(target.data(), 1, {selection, 80000}, last, found), Interrupted) << look;
        }
    }
}

} // namespace veldraw::tests

#include "kernel/compute/DifferentPlaces.h"

#include "tests/kernel/support/LookCounter.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <map>
#include <numeric>
#include <random>

namespace veldraw::tests {

using namespace kernel;

TEST(DifferentPlaces, AreEachTheLowestOfThePointsThere)
{
    std::mt19937 random(5);
    for (unsigned const places : {1U, 3U, 40U, 3000U}) {
        std::vector<PlanePlace> all;
        std::map<PlanePlace, std::uint32_t> lowest;
        for (std::uint32_t point = 0; point < 5000; ++point) {
            all.push_back({std::ldexp(random() % places, -5), random() % 2 == 0 ? 0.0 : -0.0});
            lowest.emplace(all.back(), point);
        }
        std::vector<std::uint32_t> points(all.size());
        std::iota(points.begin(), points.end(), 0U);
        Progress progress;
        std::vector<std::uint32_t> found = differentInSpace(all.data(), points, progress);
        std::sort(found.begin(), found.end());
        std::vector<std::uint32_t> wanted;
        for (auto const& [place, point] : lowest) {
            wanted.push_back(point);
        }
        std::sort(wanted.begin(), wanted.end());
        EXPECT_EQ(found, wanted) << places;
    }
}

TEST(DifferentPlaces, ACancelIsLookedForWhereAllPointsAreAtOnePlace)
{
    std::vector<PlanePlace> const all(100000, PlanePlace{1, 2});
    std::vector<std::uint32_t> points(all.size());
    std::iota(points.begin(), points.end(), 0U);
    LookCounter counter;
    EXPECT_THAT(differentInSpace(all.data(), points, counter), testing::ElementsAre(0));
    EXPECT_GE(counter.looks(), 100000 / 512);
}

} // namespace veldraw::tests

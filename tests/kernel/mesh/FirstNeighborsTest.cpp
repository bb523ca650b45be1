#include "kernel/mesh/FirstNeighbors.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <random>
#include <vector>

namespace veldraw::tests {

using namespace kernel;

TEST(FirstNeighbors, HasEachNeighborOnceAndTellsWhetherOneWasAlone)
{
    std::mt19937 random(4);
    int lonely = 0;
    int paired = 0;
    for (int round = 0; round < 5000; ++round) {
        // Short lists are compared, long ones sorted; zero is a neighbour like any other.
        std::vector<std::uint32_t> list(random() % 40);
        auto const different = static_cast<std::uint32_t>(1 + random() % 12);
        std::generate(list.begin(), list.end(), [&] { return static_cast<std::uint32_t>(random()) % different; });
        if (round % 2 == 0) {
            std::vector<std::uint32_t> const again = list;
            list.insert(list.end(), again.begin(), again.end());
        }
        std::map<std::uint32_t, int> times;
        for (std::uint32_t const neighbor : list) {
            ++times[neighbor];
        }
        Progress const progress;
        Watch watch(progress);
        FirstNeighbors const firsts = keepFirsts(list.data(), list.data() + list.size(), watch);
        std::vector<std::uint32_t> kept(list.data(), firsts.end);
        std::sort(kept.begin(), kept.end());
        bool const isAnyLonely =
            std::any_of(times.begin(), times.end(), [](auto const& entry) { return entry.second == 1; });
        ASSERT_EQ(firsts.isAnyLonely, isAnyLonely);
        ASSERT_EQ(kept.size(), times.size());
        ASSERT_TRUE(std::equal(kept.begin(), kept.end(), times.begin(),
                               [](std::uint32_t neighbor, auto const& entry) { return neighbor == entry.first; }));
        ++(isAnyLonely ? lonely : paired);
    }
    EXPECT_GT(lonely, 500);
    EXPECT_GT(paired, 500);
}

TEST(FirstNeighbors, KeepsTheOrderInWhichFewNeighborsCameUp)
{
    std::vector<std::uint32_t> list{7, 3, 7, 9, 3, 0, 9, 0, 4294967294};
    Progress const progress;
    Watch watch(progress);
    FirstNeighbors const firsts = keepFirsts(list.data(), list.data() + list.size(), watch);
    EXPECT_EQ(std::vector<std::uint32_t>(list.data(), firsts.end),
              (std::vector<std::uint32_t>{7, 3, 9, 0, 4294967294}));
    EXPECT_TRUE(firsts.isAnyLonely);
}

} // namespace veldraw::tests

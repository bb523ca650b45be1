#include "kernel/base/NumberSet.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <random>
#include <set>

namespace veldraw::tests {

using kernel::NumberSet;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

TEST(NumberSet, HasEachNumberOnceInAscendingOrder)
{
    EXPECT_THAT((NumberSet{5, 1, 3, 1, 5}), ElementsAre(1, 3, 5));
    EXPECT_THAT(toVector(NumberSet{2, 1}), ElementsAre(1, 2));
    EXPECT_THAT(NumberSet(), IsEmpty());
}

TEST(NumberSet, IsEqualToOneWithTheSameNumbers)
{
    EXPECT_EQ((NumberSet{1, 2}), (NumberSet{2, 1}));
    EXPECT_NE((NumberSet{1, 2}), (NumberSet{1, 2, 3}));
}

TEST(NumberSet, FollowsAThousandRandomChangesAsATreeDoes)
{
    std::mt19937 random(17);
    std::uniform_int_distribution<int> anyNumber(-20, 200);
    std::uniform_int_distribution<int> anyCount(0, 12);
    NumberSet set;
    std::set<int> expected;
    for (int round = 0; round < 1000; ++round) {
        int const number = anyNumber(random);
        std::vector<int> several(static_cast<std::size_t>(anyCount(random)));
        std::generate(several.begin(), several.end(), [&] { return anyNumber(random); });
        switch (random() % 8) {
        case 0:
            set.clear();
            expected.clear();
            break;
        case 1:
        case 2:
            set.erase(number);
            expected.erase(number);
            break;
        case 3:
            set.insert(several.begin(), several.end());
            expected.insert(several.begin(), several.end());
            break;
        default:
            set.insert(number);
            expected.insert(number);
        }
        ASSERT_THAT(set, ElementsAreArray(expected)) << "round " << round;
        ASSERT_EQ(set.size(), expected.size());
        ASSERT_EQ(set.empty(), expected.empty());
        ASSERT_EQ(set.count(number), expected.count(number));
        if (!expected.empty()) {
            ASSERT_EQ(*set.rbegin(), *expected.rbegin());
        }
    }
}

} // namespace veldraw::tests

#include "kernel/compute/LeafVicinity.h"

#include "tests/kernel/support/ScatteredPoints.h"

#include <gtest/gtest.h>
#include <set>

namespace veldraw::tests {

using namespace kernel;

namespace {

class LeafVicinityTest : public testing::Test
{
protected:
    bool isReadyFor(std::array<double, 3> const& target, double squaredDistance)
    {
        return vicinity.isReadyFor(tree, target.data(), squaredDistance);
    }

    std::set<std::size_t> leaves() const
    {
        std::set<std::size_t> numbers;
        for (std::size_t family = 0; family < vicinity.familyCount(); ++family) {
            for (std::size_t child = 0; child < familyWidth; ++child) {
                bool const isThere = vicinity.family(family)[child] <= vicinity.family(family)[familyWidth + child];
                EXPECT_TRUE(!isThere || numbers.insert(vicinity.leaf(family, child)).second);
            }
        }
        return numbers;
    }

    ScatteredPoints const points = ScatteredPoints::random(3, 5003, 8);
    Progress progress;
    SearchTree<3> const tree{points, points.numbers(), progress};
    LeafVicinity<3> vicinity;
};

} // namespace

TEST_F(LeafVicinityTest, IsChosenWhenATargetIsNearTheOneBefore)
{
    EXPECT_FALSE(isReadyFor({0.5, 0.5, 0.5}, 0.01));
    EXPECT_FALSE(isReadyFor({0.6, 0.5, 0.5}, 0.01)) << "a long step";
    EXPECT_TRUE(isReadyFor({0.61, 0.5, 0.5}, 0.01));
    EXPECT_TRUE(isReadyFor({0.68, 0.5, 0.5}, 0.01)) << "a long step, but near enough to the place";
    EXPECT_FALSE(isReadyFor({0.75, 0.5, 0.5}, 0.01)) << "another long step";
}

TEST_F(LeafVicinityTest, HasAllLeavesWithPointsWithinTheDistanceOfEachTarget)
{
    isReadyFor({0.5, 0.5, 0.5}, 0.01);
    for (int step = 0; step < 100; ++step) {
        std::array<double, 3> const target{0.5 + 0.004 * step, 0.5, 0.5 - 0.002 * step};
        ASSERT_TRUE(isReadyFor(target, 0.01)) << step;
        std::set<std::size_t> const near = leaves();
        for (std::size_t place = 0; place < tree.points.size(); ++place) {
            if (points.squaredDistance(tree.points[place], target.data()) <= 0.01) {
                ASSERT_EQ(near.count(place / familyWidth), 1U) << step;
            }
        }
        EXPECT_LT(near.size(), 200U);
    }
}

TEST_F(LeafVicinityTest, IsNotChosenWhereTooManyLeavesAreNear)
{
    EXPECT_FALSE(isReadyFor({0.5, 0.5, 0.5}, 1.0));
    EXPECT_FALSE(isReadyFor({0.5, 0.5, 0.5}, 1.0));
    EXPECT_EQ(vicinity.familyCount(), 0U);
    EXPECT_TRUE(isReadyFor({0.5, 0.5, 0.5}, 0.01)) << "fewer are near enough";
}

TEST_F(LeafVicinityTest, IsNotForDistancesOfWhichSquaresLoseDigits)
{
    for (double const square : {0.0, 1e-300, 1e-320, std::numeric_limits<double>::infinity()}) {
        EXPECT_FALSE(isReadyFor({0.5, 0.5, 0.5}, square));
        EXPECT_FALSE(isReadyFor({0.5, 0.5, 0.5}, square)) << square;
    }
}

} // namespace veldraw::tests

#include "kernel/compute/LoopLines.h"

#include <gmock/gmock.h>

namespace veldraw::tests {

using kernel::findLoops;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(LoopLines, AreLinesThatEndWhereTheyBegin)
{
    EXPECT_THAT(findLoops({{{0, 0}, {1, 0}, {1, 1}, {0, 0}}, {{0, 0}, {1, 0}, {1, 1}}}), ElementsAre(true, false));
    EXPECT_THAT(findLoops({}), IsEmpty());
    EXPECT_THAT(findLoops({{}, {{2, 2}}}), ElementsAre(false, true));
}

TEST(LoopLines, AreFourSidesInAnyDirection)
{
    EXPECT_THAT(findLoops({{{0, 0}, {0.5, -1}, {1, 0}}, {{0, 1}, {0, 0}}, {{1, 1}, {0, 1}}, {{1, 1}, {1, 0}}}),
                ElementsAre(true, true, true, true));
}

TEST(LoopLines, AreTwoLinesBetweenTheSamePlaces)
{
    EXPECT_THAT(findLoops({{{0, 0}, {1, 0}, {2, 0}}, {{0, 0}, {1, 1}, {2, 0}}}), ElementsAre(true, true));
}

TEST(LoopLines, AreNotLinesOfAnOpenChain)
{
    EXPECT_THAT(findLoops({{{0, 0}, {1, 0}}, {{1, 0}, {1, 1}}, {{1, 1}, {0, 1}}}), ElementsAre(false, false, false));
}

TEST(LoopLines, AreAllLinesOfALongRingAndNoneOfALongChain)
{
    constexpr std::size_t count = 20000;
    std::vector<std::vector<kernel::PlanePlace>> ring;
    for (std::size_t line = 0; line < count; ++line) { // against the order of the numbers
        double const from = static_cast<double>(count - line);
        ring.push_back({{from, 0}, {line + 1 < count ? from - 1 : static_cast<double>(count), 0}});
    }
    EXPECT_EQ(findLoops(ring), std::vector<bool>(count, true));
    ring.back()[1] = {-7, -7};
    EXPECT_EQ(findLoops(ring), std::vector<bool>(count, false));
}

TEST(LoopLines, AreNotLinesWhereThreeEndsMeet)
{
    EXPECT_THAT(findLoops({{{0, 0}, {1, 0}}, {{1, 0}, {1, 1}}, {{1, 1}, {0, 0}}, {{0, 0}, {5, 5}}}),
                ElementsAre(false, false, false, false));
}

} // namespace veldraw::tests

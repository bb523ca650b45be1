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

TEST(LoopLines, AreNotLinesWhereThreeEndsMeet)
{
    EXPECT_THAT(findLoops({{{0, 0}, {1, 0}}, {{1, 0}, {1, 1}}, {{1, 1}, {0, 0}}, {{0, 0}, {5, 5}}}),
                ElementsAre(false, false, false, false));
}

} // namespace veldraw::tests

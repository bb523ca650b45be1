#include "kernel/base/Progress.h"

#include <gtest/gtest.h>
#include <memory>
#include <thread>
#include <vector>

namespace veldraw::tests {

using namespace kernel;

TEST(Progress, CountsWhatIsDone)
{
    Progress progress;
    EXPECT_EQ(progress.fraction(), 0.0);
    progress.setTotal(8);
    progress.advance(2);
    EXPECT_EQ(progress.fraction(), 0.25);
    progress.advance(20);
    EXPECT_EQ(progress.fraction(), 1.0);
}

TEST(Progress, ReachesAFractionAndNeverGoesBack)
{
    Progress progress;
    progress.setTotal(1000);
    progress.reach(0.25);
    EXPECT_EQ(progress.done(), 250);
    progress.reach(0.1);
    EXPECT_EQ(progress.done(), 250);
    progress.reach(7.0);
    EXPECT_EQ(progress.done(), 1000);
}

TEST(Progress, APartMovesTheWholeOnByItsShare)
{
    Progress whole;
    whole.setTotal(100);
    {
        Progress part(whole, 50);
        part.setTotal(1000);
        part.advance(500);
        EXPECT_EQ(part.fraction(), 0.5);
        EXPECT_EQ(whole.done(), 25);
    }
    EXPECT_EQ(whole.done(), 50) << "the part has ended";
}

TEST(Progress, APartHasTheUnitsOfTheWholeUntilItIsToldOthers)
{
    Progress whole;
    whole.setTotal(100);
    Progress part(whole, 40);
    part.advance(10);
    EXPECT_EQ(part.fraction(), 0.25);
    EXPECT_EQ(whole.done(), 10);
}

TEST(Progress, APartThatDoesMoreThanItAnnouncedMovesTheWholeOnByItsShareOnly)
{
    Progress whole;
    whole.setTotal(100);
    {
        Progress part(whole, 10);
        part.setTotal(3);
        part.advance(5);
        EXPECT_EQ(whole.done(), 10);
    }
    EXPECT_EQ(whole.done(), 10);
}

TEST(Progress, PartsOfPartsAddUpOnAllThreads)
{
    constexpr int threads = 4;
    constexpr int steps = 7777;
    Progress whole;
    whole.setTotal(1000);
    {
        Progress half(whole, 500);
        half.setTotal(threads);
        std::vector<std::thread> workers;
        for (int n = 0; n < threads; ++n)
            workers.emplace_back([&half] {
                Progress own(half, 1);
                own.setTotal(steps);
                for (int step = 0; step < steps; ++step)
                    own.advance(1);
            });
        for (std::thread& worker : workers)
            worker.join();
        EXPECT_EQ(half.done(), threads);
        EXPECT_EQ(whole.done(), 500);
    }
    EXPECT_EQ(whole.done(), 500);
}

TEST(Progress, AnInterruptOfTheWholeEndsItsParts)
{
    Progress whole;
    Progress part(whole, 1);
    Progress partOfPart(part, 1);
    EXPECT_NO_THROW(partOfPart.check());
    whole.interrupt();
    EXPECT_TRUE(part.isInterrupted());
    EXPECT_THROW(partOfPart.check(), Interrupted);
}

TEST(Progress, AnInterruptOfAPartLeavesTheWholeAlone)
{
    Progress whole;
    Progress part(whole, 1);
    part.interrupt();
    EXPECT_THROW(part.check(), Interrupted);
    EXPECT_FALSE(whole.isInterrupted());
}

} // namespace veldraw::tests

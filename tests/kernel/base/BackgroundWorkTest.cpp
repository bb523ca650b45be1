#include "kernel/base/BackgroundWork.h"

#include "tests/support/AllocationFailure.h"
#include "tests/support/ThreadFailure.h"

#include <gtest/gtest.h>
#include <thread>

namespace veldraw::tests {

using namespace kernel;

namespace {

class CountingWaiter : public Waiter
{
public:
    void wait(std::string const&, Progress&, std::shared_future<void> const& work) override
    {
        ++waits;
        work.wait();
    }

    int waits = 0;
};

} // namespace

TEST(BackgroundWork, RunsOnTheCallingThreadWhereNoOtherIsToBeHad)
{
    CountingWaiter waiter;
    Progress progress;
    std::thread::id thread;
    ThreadFailure const none;
    runInBackground(&waiter, "Test", progress, [&](Progress&) { thread = std::this_thread::get_id(); });
    EXPECT_EQ(thread, std::this_thread::get_id());
    EXPECT_EQ(none.refused(), 1);
    EXPECT_EQ(waiter.waits, 0);
    EXPECT_FALSE(progress.isInterrupted());
}

// Also when there is no memory for the reason why it does not start.
TEST(BackgroundWork, IsRefusedWithoutTheMemoryToStartIt)
{
    CountingWaiter waiter;
    int refusals = 0;
    for (auto const lasting : {AllocationFailure::Lasting::Once, AllocationFailure::Lasting::FromThenOn}) {
        bool hasFailed = true;
        for (int request = 1; hasFailed; ++request) {
            Progress progress;
            bool hasRun = false;
            bool isRefused = false;
            {
                std::function<void(Progress&)> const work = [&](Progress&) { hasRun = true; };
                std::string const name = "Test";
                AllocationFailure const failure(request, lasting);
                try {
                    runInBackground(&waiter, name, progress, work);
                } catch (std::bad_alloc const&) {
                    isRefused = true;
                }
                hasFailed = failure.hasHappened();
            }
            EXPECT_EQ(hasRun, !isRefused) << request;
            EXPECT_EQ(isRefused, hasFailed) << request;
            refusals += isRefused ? 1 : 0;
        }
    }
    EXPECT_GE(refusals, 4);
}

TEST(BackgroundWork, HandsOnWhatTheWorkThrows)
{
    CountingWaiter waiter;
    Progress progress;
    auto const fail = [](Progress&) { throw std::runtime_error("no luck"); };
    EXPECT_THROW(runInBackground(&waiter, "Test", progress, fail), std::runtime_error);
    EXPECT_EQ(waiter.waits, 1);
}

} // namespace veldraw::tests

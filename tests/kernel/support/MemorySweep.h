#pragma once

#include "kernel/operations/RenameZone.h"
#include "tests/kernel/support/SampleData.h"
#include "tests/kernel/support/StateDigest.h"
#include "tests/kernel/support/Waiters.h"
#include "tests/support/AllocationFailure.h"

#include <cstdio>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace veldraw::tests {

/// Everything that a sweep starts from, fresh for each request that fails.
struct MemoryStage
{
    MemoryStage()
    {
        frame->dataSet = dataSet;
        session.openPage({frame});
        session.perform(kernel::RenameZone(*dataSet, 1, "named before")); // so that undo and redo have work
        session.perform(kernel::RenameVariable(*dataSet, 1, "named before"));
        session.undo();
        recorder = std::make_unique<EventCounter>(session.events());
    }

    struct EventCounter
    {
        explicit EventCounter(kernel::EventHub& hub)
        {
            hub.subscribe([this](kernel::StateChangeEvent const&) { ++events; });
        }
        int events = 0;
    };

    std::shared_ptr<kernel::DataSet> dataSet = sample::twoPlanes();
    std::shared_ptr<kernel::Frame> frame = std::make_shared<kernel::Frame>("Frame 1", kernel::Rectangle{});
    kernel::Session session;
    std::unique_ptr<EventCounter> recorder;
};

/// In what way memory runs out.
struct Shortage
{
    AllocationFailure::Lasting lasting;
    AllocationFailure::Threads threads; ///< with those of all, long work runs on a thread of its own
    char const* name;
};

constexpr Shortage everyShortage[] = {
    {AllocationFailure::Lasting::Once, AllocationFailure::Threads::ThisOne, "once"},
    {AllocationFailure::Lasting::FromThenOn, AllocationFailure::Threads::ThisOne, "from then on"},
    {AllocationFailure::Lasting::Once, AllocationFailure::Threads::All, "once on any thread"},
    {AllocationFailure::Lasting::FromThenOn, AllocationFailure::Threads::All, "from then on, on all threads"},
};

/// Counts requests that were refused, and says how many when the program ends.
class RefusedRequests : public testing::Environment
{
public:
    static RefusedRequests& instance()
    {
        static auto* const refused = new RefusedRequests; // deleted by the framework
        return *refused;
    }

    void add() { ++m_count; }
    void TearDown() override
    {
        std::printf("memory sweeps: %d requests refused in operations that went on\n", m_count);
    }

private:
    RefusedRequests() { testing::AddGlobalTestEnvironment(this); }
    int m_count = 0;
};

using PerformOnStage = std::function<bool(MemoryStage&)>;
using PrepareStage = std::function<void(MemoryStage&)>;

/// Carries the operation out with so many requests for memory answered: it succeeds, or nothing has changed and nothing was told.
/// @return whether one of the requests was refused
inline bool tryWithout(int request, Shortage const& shortage, PerformOnStage const& operation,
                       PrepareStage const& prepare)
{
    std::string const when = "request " + std::to_string(request) + " fails " + shortage.name;
    MemoryStage stage;
    prepare(stage);
    PlainWaiter waiter;
    stage.session.setWaiter(shortage.threads == AllocationFailure::Threads::All ? &waiter : nullptr);
    std::string const before = stateDigest(stage.session);
    bool succeeded = false;
    bool failedOnce = false;
    {
        AllocationFailure const failure(request, shortage.lasting, shortage.threads);
        succeeded = refusedWithoutMemory(stage.session, [&] { return operation(stage); });
        failedOnce = failure.hasHappened();
    }
    EXPECT_TRUE(succeeded || failedOnce) << "with all memory";
    if (failedOnce) {
        RefusedRequests::instance().add();
    }
    if (succeeded) {
        EXPECT_NE(stateDigest(stage.session), before) << when;
        EXPECT_GT(stage.recorder->events, 0) << when;
        return failedOnce;
    }
    EXPECT_EQ(stateDigest(stage.session), before) << when;
    EXPECT_EQ(stage.recorder->events, 0) << when;
    EXPECT_EQ(stage.session.lastError(), "Out of memory.") << when;
    EXPECT_TRUE(operation(stage)) << "afterwards, " << when;
    return true;
}

/// Lets each request for memory of @p operation fail in every way. @return the number of requests that failed once
inline int sweepMemory(
    PerformOnStage const& operation, PrepareStage const& prepare = [](MemoryStage&) {})
{
    constexpr int most = 10000;
    int ofThisThread = 0;
    for (Shortage const& shortage : everyShortage) {
        int request = 1;
        while (request < most && tryWithout(request, shortage, operation, prepare)) {
            ++request;
        }
        EXPECT_LT(request, most) << "the operation never came to an end";
        ofThisThread = ofThisThread == 0 ? request - 1 : ofThisThread;
    }
    return ofThisThread;
}

} // namespace veldraw::tests

#pragma once

#include "tests/kernel/support/EventRecorder.h"
#include "tests/kernel/support/SampleData.h"
#include "tests/kernel/support/StateDigest.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace veldraw::tests {

/// A session with one frame that shows the two planes; nothing to undo and no event heard yet.
class SessionFixture : public testing::Test
{
protected:
    using Events = std::vector<std::string>;

    SessionFixture()
    {
        frame->dataSet = dataSet;
        session.openPage({frame});
        recorder.take();
    }

    /// Undo and redo give exactly the states before and after, with the step's events and then the one of a restored state.
    void expectUndoAndRedo(std::string const& before, Events undoEvents, Events redoEvents)
    {
        std::string const after = withoutHistory();
        undoEvents.emplace_back("24");
        redoEvents.emplace_back("24");
        recorder.take();
        EXPECT_TRUE(session.undo());
        EXPECT_EQ(withoutHistory(), before);
        EXPECT_EQ(recorder.take(), undoEvents);
        EXPECT_TRUE(session.redo());
        EXPECT_EQ(withoutHistory(), after);
        EXPECT_EQ(recorder.take(), redoEvents);
    }

    template <typename Operation>
    void expectRefused(Operation const& operation)
    {
        std::string const before = stateDigest(session);
        session.setLastError({});
        EXPECT_FALSE(operation());
        EXPECT_EQ(stateDigest(session), before);
        EXPECT_THAT(recorder.take(), testing::IsEmpty());
        EXPECT_NE(session.lastError(), "");
    }

    std::string withoutHistory() const
    {
        std::string const digest = stateDigest(session);
        return digest.substr(0, digest.rfind("undo "));
    }

    std::shared_ptr<kernel::DataSet> dataSet = sample::twoPlanes();
    std::shared_ptr<kernel::Frame> frame = std::make_shared<kernel::Frame>("Frame 1", kernel::Rectangle{});
    kernel::Session session;
    EventRecorder recorder{session.events()};
    kernel::UniqueId const noFrame = kernel::nextUniqueId();
};

} // namespace veldraw::tests

#pragma once

#include "tests/kernel/support/EventRecorder.h"
#include "tests/kernel/support/StateDigest.h"
#include "tests/support/MemoryLimit.h"

#include <gtest/gtest.h>

namespace veldraw::tests {

/// The least memory with which @p operation is carried out. It is taken back each time; refused it leaves no trace.
template <typename Operation>
double memoryAskedFor(kernel::Session& session, EventRecorder& recorder, Operation const& operation)
{
    return leastMemory([&] {
        std::string const before = stateDigest(session);
        recorder.take();
        if (operation()) {
            EXPECT_TRUE(session.undo());
            session.history().clear();
            return true;
        }
        EXPECT_EQ(session.lastError(), "Out of memory.");
        EXPECT_EQ(stateDigest(session), before);
        EXPECT_TRUE(recorder.take().empty());
        return false;
    });
}

} // namespace veldraw::tests

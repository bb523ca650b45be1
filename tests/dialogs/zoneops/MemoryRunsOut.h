#pragma once

#include "tests/dialogs/support/RecordedMessages.h"
#include "tests/support/AllocationFailure.h"

#include <gtest/gtest.h>
#include <set>
#include <string>

namespace veldraw::tests {

/// What the user is told in all by an action that is tried with its first request for memory failing, then its second, and so
/// on, until it asks for no more. It must never throw.
template <typename Action>
std::set<std::string> toldWhenMemoryRunsOut(Action const& action, RecordedMessages& messages)
{
    std::set<std::string> told;
    bool hasFailed = true;
    for (int request = 1; hasFailed; ++request) {
        {
            AllocationFailure const failure(request);
            EXPECT_NO_THROW(action()) << "request " << request;
            hasFailed = failure.hasHappened();
        }
        for (std::string const& text : messages.take())
            told.insert(text);
    }
    return told;
}

} // namespace veldraw::tests

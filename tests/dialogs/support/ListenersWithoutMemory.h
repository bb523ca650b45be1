#pragma once

#include "tests/support/AllocationFailure.h"

#include <boost/make_shared.hpp>
#include <boost/signals2/connection.hpp>

#include <gtest/gtest.h>
#include <memory>
#include <new>

namespace veldraw::tests {

/// Connects a listener, each request for memory failing in turn, and checks that only those are called that the caller knows of.
/// @param make    makes what is listened to
/// @param connect connects a callable without arguments or with any
/// @param tell    has the listeners called once
template <typename Make, typename Connect, typename Tell>
void expectNoListenerLeftBehind(Make const& make, Connect const& connect, Tell const& tell)
{
    int failures = 0;
    for (int request = 1;; ++request) {
        auto const source = make();
        int heard = 0;
        bool hasFailed = true;
        auto owner = boost::make_shared<int>(0);
        {
            AllocationFailure const failure(request);
            try {
                connect(*source, [&heard, owner](auto const&...) { ++heard; }).disconnect();
                hasFailed = failure.hasHappened();
            } catch (std::bad_alloc const&) {
                ++failures;
            }
        }
        tell(*source);
        EXPECT_EQ(heard, 0) << request;
        if (!hasFailed)
            break;
        EXPECT_EQ(owner.use_count(), 1) << request;
        connect(*source, [&heard](auto const&...) { ++heard; });
        tell(*source);
        EXPECT_EQ(heard, 1) << request;
    }
    EXPECT_GT(failures, 3);
}

} // namespace veldraw::tests

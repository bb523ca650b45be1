#include "kernel/base/CommonEnd.h"

#include "tests/kernel/support/LookCounter.h"

#include <atomic>
#include <chrono>
#include <gtest/gtest.h>
#include <new>
#include <stdexcept>
#include <string>
#include <thread>

namespace veldraw::tests {

using namespace kernel;

namespace {

/// What the end tells of a failure; empty for none.
template <typename Work>
std::string told(CommonEnd& end, Work const& work)
{
    try {
        end.tell(work);
    } catch (std::exception const& failure) {
        return failure.what();
    }
    return "";
}

void failAs(char const* text)
{
    throw std::runtime_error(text);
}

} // namespace

TEST(CommonEndTest, AdvancesTheWholeByItsUnits)
{
    Progress whole;
    whole.setTotal(100);
    whole.advance(30);
    {
        CommonEnd end(whole, 70);
        EXPECT_EQ(told(end, [&] { end.join(0, [&] { end.progress().advance(20); }); }), "");
        EXPECT_EQ(whole.done(), 50);
    }
    EXPECT_EQ(whole.done(), 100);
}

TEST(CommonEndTest, EndsAnotherPieceThatLooksAtTheCommonProgress)
{
    Progress whole;
    CommonEnd end(whole, 1);
    std::atomic<bool> hasBegun{false};
    std::thread other([&] {
        auto const untilInterrupted = [&] {
            hasBegun = true;
            auto const patience = std::chrono::steady_clock::now() + std::chrono::minutes(1);
            while (std::chrono::steady_clock::now() < patience) {
                end.progress().check();
                std::this_thread::yield();
            }
        };
        EXPECT_THROW(end.join(0, untilInterrupted), Interrupted);
    });
    while (!hasBegun) {
        std::this_thread::yield();
    }
    EXPECT_EQ(told(end, [&] { end.join(1, [] { failAs("second"); }); }), "second");
    other.join();
    EXPECT_FALSE(whole.isInterrupted()) << "it is no cancel";
}

TEST(CommonEndTest, TellsTheFailureOfTheLowestPlaceWhicheverCameFirst)
{
    Progress whole;
    CommonEnd end(whole, 1);
    auto const work = [&] {
        EXPECT_THROW(end.join(2, [] { failAs("third"); }), std::runtime_error);
        EXPECT_THROW(end.join(0, [] { failAs("first"); }), std::runtime_error);
        EXPECT_THROW(end.join(1, [] { throw std::bad_alloc(); }), std::bad_alloc);
        end.progress().check();
    };
    EXPECT_EQ(told(end, work), "first");
}

TEST(CommonEndTest, LetsACancelThrough)
{
    LookCounter whole(1);
    CommonEnd end(whole, 1);
    EXPECT_THROW(end.tell([&] { end.join(0, [&] { end.progress().check(); }); }), Interrupted);
    EXPECT_FALSE(end.progress().isInterrupted()) << "others look for themselves";
}

} // namespace veldraw::tests

#include "dialogs/bindings/ScopedExitAction.h"

#include <gtest/gtest.h>
#include <stdexcept>

namespace veldraw::tests {
namespace {

using sdk::ui::dialogs::propertybindings::ScopedExitAction;

TEST(ScopedExitAction, RunsOnceAtTheEndOfTheScope)
{
    int runs = 0;
    {
        ScopedExitAction const action([&runs] { ++runs; });
        EXPECT_EQ(runs, 0);
    }
    EXPECT_EQ(runs, 1);
}

TEST(ScopedExitAction, RunsWhenAnExceptionLeavesTheScope)
{
    bool flag = true;
    EXPECT_THROW(
        {
            ScopedExitAction const action([&flag] { flag = false; });
            throw std::runtime_error("leave");
        },
        std::runtime_error);
    EXPECT_FALSE(flag);
}

TEST(ScopedExitAction, CopiesTheActionAtConstruction)
{
    int runs = 0;
    std::function<void()> action = [&runs] { ++runs; };
    {
        ScopedExitAction const scope(action);
        action = [&runs] { runs += 100; };
    }
    EXPECT_EQ(runs, 1);
}

TEST(ScopedExitAction, ThrowsAtTheEndOfTheScopeWhenTheActionIsEmpty)
{
    bool reachedTheEnd = false;
    EXPECT_THROW(
        {
            ScopedExitAction const action((std::function<void()>()));
            reachedTheEnd = true;
        },
        std::bad_function_call);
    EXPECT_TRUE(reachedTheEnd);
}

TEST(ScopedExitAction, LetsOutWhatTheActionThrows)
{
    EXPECT_THROW({ ScopedExitAction const action([] { throw std::logic_error("late"); }); }, std::logic_error);
}

} // namespace
TEST(ScopedExitAction, LetsTheFirstOfTwoExceptionsLeave)
{
    auto const failTwice = [] {
        ScopedExitAction const failing([] { throw std::runtime_error("second"); });
        throw std::logic_error("first");
    };
    EXPECT_THROW(failTwice(), std::logic_error);
}

} // namespace veldraw::tests

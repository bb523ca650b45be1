#include "platform/vdsdkcommon/WaitState.h"

#include <QApplication>
#include <QCursor>

#include <gtest/gtest.h>
#include <new>
#include <string>
#include <utility>

namespace veldraw::tests {

using sdk::WaitState;

TEST(WaitState, ShowsTheBusyCursorForItsScope)
{
    ASSERT_EQ(QApplication::overrideCursor(), nullptr);
    {
        WaitState const outer;
        ASSERT_NE(QApplication::overrideCursor(), nullptr);
        EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
        {
            WaitState const inner;
            EXPECT_EQ(WaitState::depth(), 2);
        }
        ASSERT_NE(QApplication::overrideCursor(), nullptr);
        EXPECT_EQ(WaitState::depth(), 1);
    }
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(WaitState::depth(), 0);
}

TEST(WaitState, TellsWhenTheApplicationBecomesBusyAndWhenItIsNoMore)
{
    std::string told;
    boost::signals2::scoped_connection const connection =
        WaitState::connectBusyChanged([&told](bool busy) { told += busy ? "busy " : "free "; });
    {
        WaitState const outer;
        WaitState const inner;
        EXPECT_EQ(told, "busy ");
    }
    EXPECT_EQ(told, "busy free ");
}

TEST(WaitState, EndsThoughAListenerFails)
{
    std::string told;
    bool isSuchThatItFails = false;
    boost::signals2::scoped_connection const failing = WaitState::connectBusyChanged([&](bool) {
        if (std::exchange(isSuchThatItFails, false))
            throw std::bad_alloc();
    });
    boost::signals2::scoped_connection const other =
        WaitState::connectBusyChanged([&told](bool busy) { told += busy ? "busy " : "free "; });
    {
        WaitState const state;
        isSuchThatItFails = true;
    }
    EXPECT_EQ(told, "busy free ");
    EXPECT_EQ(WaitState::depth(), 0);
    isSuchThatItFails = true;
    EXPECT_THROW(WaitState(), std::bad_alloc);
    EXPECT_EQ(WaitState::depth(), 0);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(told, "busy free free ");
}

} // namespace veldraw::tests

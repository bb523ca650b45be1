#include "host/ArrowCursor.h"

#include "platform/vdsdkcommon/WaitState.h"

#include <QApplication>
#include <QCursor>

#include <gtest/gtest.h>

namespace veldraw::tests {

using host::ArrowCursor;

TEST(ArrowCursor, TakesThePlaceOfTheBusyCursorForItsScope)
{
    sdk::WaitState const busy;
    {
        ArrowCursor const arrow;
        ASSERT_NE(QApplication::overrideCursor(), nullptr);
        EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::ArrowCursor);
    }
    ASSERT_NE(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
}

TEST(ArrowCursor, TakesThePlaceOfABusyCursorThatSomebodyElseShows)
{
    QApplication::setOverrideCursor(Qt::WaitCursor);
    {
        ArrowCursor const arrow;
        EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::ArrowCursor);
    }
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    QApplication::restoreOverrideCursor();
}

TEST(ArrowCursor, LeavesTheCursorsOfTheWidgetsAloneWhenNothingIsBusy)
{
    ArrowCursor const arrow;
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

} // namespace veldraw::tests

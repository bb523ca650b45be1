#include "kernel/operations/DeleteVariables.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "tests/app/support/WindowTest.h"

#include <QAction>
#include <QTest>

namespace veldraw::tests {

namespace {

class UndoTest : public WindowTest
{
protected:
    UndoTest()
    {
        openFlow();
        showWindow();
    }

    void deleteVariable(int number)
    {
        ASSERT_TRUE(session.perform(kernel::DeleteVariables(*session.activeDataSet(), {number})));
        settle();
    }

    int variables() { return session.activeDataSet()->variableCount(); }
};

} // namespace

TEST_F(UndoTest, TheMenuNamesTheStep)
{
    EXPECT_EQ(QStringLiteral("&Undo"), action("undoAction").text());
    EXPECT_FALSE(action("undoAction").isEnabled());
    deleteVariable(3);
    EXPECT_EQ(QStringLiteral("&Undo Delete Variable"), action("undoAction").text());
    EXPECT_TRUE(action("undoAction").isEnabled());
    EXPECT_FALSE(action("redoAction").isEnabled());
}

TEST_F(UndoTest, CtrlZAndCtrlShiftZGoBackAndForth)
{
    deleteVariable(3);
    QTest::keyClick(window.get(), Qt::Key_Z, Qt::ControlModifier);
    settle();
    EXPECT_EQ(3, variables());
    EXPECT_EQ(QStringLiteral("&Redo Delete Variable"), action("redoAction").text());
    QTest::keyClick(window.get(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    settle();
    EXPECT_EQ(2, variables());
    EXPECT_FALSE(action("redoAction").isEnabled());
}

TEST_F(UndoTest, DoesNothingWhileTheApplicationIsLocked)
{
    deleteVariable(3);
    sdk::AppLock const lock(sdk::AppLock::RecordAsUsual);
    action("undoAction").trigger();
    EXPECT_EQ(2, variables());
}

TEST_F(UndoTest, MarksTheTitleAsLongAsThereAreUnsavedChanges)
{
    EXPECT_FALSE(window->isWindowModified());
    deleteVariable(3);
    EXPECT_TRUE(window->isWindowModified());
    session.undo();
    settle();
    EXPECT_FALSE(window->isWindowModified());
}

} // namespace veldraw::tests

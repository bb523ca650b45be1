#include "app/window/AssignmentPanel.h"

#include "kernel/operations/EnableZone.h"
#include "kernel/operations/RenameZone.h"
#include "kernel/operations/SetPlotType.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "tests/app/support/WindowTest.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QGroupBox>
#include <QTest>
#include <QWheelEvent>

namespace veldraw::tests {

namespace {

class AssignmentPanelTest : public WindowTest
{
protected:
    app::NumberChooser& chooser(char const* name)
    {
        return *window->findChild<app::NumberChooser*>(QString::fromLatin1(name));
    }

    // Opens the panel and goes down in a combo box by one entry.
    void pressDown(app::NumberChooser& box)
    {
        action("assignAction").trigger();
        settle();
        box.setFocus();
        QTest::keyClick(&box, Qt::Key_Down);
        settle();
    }

    bool isShown(char const* name)
    {
        action("assignAction").trigger();
        settle();
        return chooser(name).isVisible();
    }
};

} // namespace

TEST_F(AssignmentPanelTest, ShowsTheAxesOfThePlotType)
{
    openFlow();
    showWindow();
    EXPECT_TRUE(isShown("assignmentX"));
    EXPECT_FALSE(isShown("assignmentZ"));
    EXPECT_FALSE(isShown("lineZone"));
    session.perform(kernel::SetPlotType(session.activeFrame()->id, PlotType_Cartesian3D));
    EXPECT_TRUE(isShown("assignmentZ"));
    session.perform(kernel::SetPlotType(session.activeFrame()->id, PlotType_XYLine));
    EXPECT_FALSE(isShown("assignmentX"));
    EXPECT_TRUE(isShown("lineZone"));
}

TEST_F(AssignmentPanelTest, ShowsWhatIsAssigned)
{
    openFlow();
    showWindow();
    EXPECT_EQ(QStringLiteral("1: X"), chooser("assignmentX").currentText());
    EXPECT_EQ(QStringLiteral("2: Y"), chooser("assignmentY").currentText());
    EXPECT_EQ(QStringLiteral("3: P"), chooser("assignmentC").currentText());
    EXPECT_EQ(QStringLiteral("(none)"), chooser("assignmentU").currentText());
}

TEST_F(AssignmentPanelTest, AKeyAssignsAnotherVariable)
{
    openFlow();
    showWindow();
    pressDown(chooser("assignmentX"));
    EXPECT_EQ(2, session.activeFrame()->variableNumber('X'));
    EXPECT_EQ("Assign Variable", session.history().undoName());
    session.undo();
    settle();
    EXPECT_EQ(QStringLiteral("1: X"), chooser("assignmentX").currentText());
}

TEST_F(AssignmentPanelTest, AssignsTheVector)
{
    openFlow();
    showWindow();
    pressDown(chooser("assignmentU"));
    EXPECT_EQ(1, session.activeFrame()->variableNumber('U'));
}

TEST_F(AssignmentPanelTest, ChoosesWhatALinePlotShows)
{
    openFrames({{"series", makeSeries()}});
    showWindow();
    EXPECT_EQ(1, chooser("lineX").number());
    EXPECT_EQ(2, chooser("lineY").number());
    pressDown(chooser("lineX"));
    auto const& map = session.activeFrame()->lineMaps.front();
    EXPECT_EQ(2, session.activeDataSet()->variableNumber(map.xVariable));
}

TEST_F(AssignmentPanelTest, LeavesOutDisabledVariables)
{
    openFlow();
    showWindow();
    session.perform(kernel::EnableVariable(*session.activeDataSet(), 2, false));
    settle();
    EXPECT_EQ(-1, chooser("assignmentX").findData(2));
    EXPECT_NE(-1, chooser("assignmentX").findData(3));
}

TEST_F(AssignmentPanelTest, DoesNothingWhileTheApplicationIsLocked)
{
    openFlow();
    showWindow();
    action("assignAction").trigger();
    settle();
    sdk::AppLock const lock(sdk::AppLock::RecordAsUsual);
    QTest::keyClick(&chooser("assignmentX"), Qt::Key_Down);
    EXPECT_EQ(1, session.activeFrame()->variableNumber('X'));
}

TEST_F(AssignmentPanelTest, TheWheelOverABoxWithoutFocusChangesNothing)
{
    openFlow();
    showWindow();
    action("assignAction").trigger();
    settle();
    app::NumberChooser& box = chooser("assignmentY");
    ASSERT_FALSE(box.hasFocus());
    QPointF const centre = box.rect().center();
    QWheelEvent wheel(centre, box.mapToGlobal(centre.toPoint()), {}, {0, -120}, Qt::NoButton, {}, Qt::NoScrollPhase,
                      false);
    QApplication::sendEvent(&box, &wheel);
    settle();
    EXPECT_EQ(2, session.activeFrame()->variableNumber('Y'));
    EXPECT_FALSE(session.history().canUndo());
}

TEST_F(AssignmentPanelTest, OfALongNameBothEndsAreRead)
{
    openFlow();
    session.perform(kernel::RenameVariable(*session.activeDataSet(), 1,
                                           "pressure_coefficient_of_the_suction_side_of_the_first_blade_X"));
    showWindow();
    EXPECT_TRUE(isShown("assignmentX"));
    app::NumberChooser& box = chooser("assignmentX");
    EXPECT_TRUE(box.shownText().startsWith(QStringLiteral("1: pre"))) << box.shownText().toStdString();
    EXPECT_TRUE(box.shownText().endsWith(QStringLiteral("blade_X"))) << box.shownText().toStdString();
    EXPECT_TRUE(box.toolTip().contains(box.currentText()));
    box.showPopup();
    EXPECT_GE(box.view()->width(), box.fontMetrics().horizontalAdvance(box.currentText()));
    box.hidePopup();
}

} // namespace veldraw::tests

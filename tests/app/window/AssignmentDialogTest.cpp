#include "app/window/AssignmentDialog.h"

#include "kernel/operations/SetPlotType.h"
#include "tests/app/support/WindowTest.h"

#include <QAction>
#include <QApplication>
#include <QDialogButtonBox>
#include <QMenu>
#include <QTest>
#include <QTimer>

#include <gmock/gmock.h>

namespace veldraw::tests {

namespace {

class AssignmentDialogTest : public WindowTest
{
protected:
    AssignmentDialogTest()
    {
        openFlow();
        showWindow();
    }

    /// Lets @p user act on the dialog that @p command opens.
    void withDialog(char const* command, std::function<void(QDialog&)> const& user)
    {
        bool wasOpen = false;
        QTimer::singleShot(0, window.get(), [&] {
            auto* const dialog = dynamic_cast<app::AssignmentDialog*>(QApplication::activeModalWidget());
            ASSERT_TRUE(dialog);
            wasOpen = true;
            user(*dialog);
        });
        action(command).trigger();
        EXPECT_TRUE(wasOpen);
        settle();
    }

    static app::NumberChooser* chooser(QDialog& dialog, char const* name)
    {
        return dialog.findChild<app::NumberChooser*>(QString::fromLatin1(name));
    }

    int assigned(char letter) { return session.activeFrame()->variableNumber(letter); }
};

} // namespace

TEST_F(AssignmentDialogTest, AxesAreAssignedByKeysInOneUndoStep)
{
    withDialog("assignAxesAction", [](QDialog& dialog) {
        EXPECT_EQ("Assign Axes", dialog.windowTitle().toStdString());
        EXPECT_EQ("1: X", chooser(dialog, "chooseX")->currentText().toStdString());
        EXPECT_FALSE(chooser(dialog, "chooseZ")) << "a plane has two axes";
        QTest::keyClick(chooser(dialog, "chooseX"), Qt::Key_Down);
        QTest::keyClick(chooser(dialog, "chooseY"), Qt::Key_Down);
        QTest::keyClick(&dialog, Qt::Key_Return);
    });
    EXPECT_EQ(2, assigned('X'));
    EXPECT_EQ(3, assigned('Y'));
    EXPECT_EQ("Assign Axes", session.history().undoName());
    session.undo();
    EXPECT_EQ(1, assigned('X'));
    EXPECT_EQ(2, assigned('Y'));
    session.redo();
    EXPECT_EQ(2, assigned('X'));
}

TEST_F(AssignmentDialogTest, TheVectorOfAPlaneHasTwoComponents)
{
    withDialog("assignVectorAction", [](QDialog& dialog) {
        EXPECT_EQ("(none)", chooser(dialog, "chooseU")->currentText().toStdString());
        EXPECT_FALSE(chooser(dialog, "chooseW"));
        QTest::keyClick(chooser(dialog, "chooseU"), Qt::Key_End);
        QTest::keyClick(chooser(dialog, "chooseV"), Qt::Key_Down);
        QTest::keyClick(&dialog, Qt::Key_Return);
    });
    EXPECT_EQ(3, assigned('U'));
    EXPECT_EQ(1, assigned('V'));
    EXPECT_EQ("Assign Vector", session.history().undoName());
}

TEST_F(AssignmentDialogTest, InSpaceThereIsAThirdOne)
{
    session.perform(kernel::SetPlotType(session.activeFrame()->id, PlotType_Cartesian3D));
    settle();
    withDialog("assignVectorAction", [](QDialog& dialog) {
        QTest::keyClick(chooser(dialog, "chooseW"), Qt::Key_Down);
        QTest::keyClick(&dialog, Qt::Key_Return);
    });
    EXPECT_EQ(1, assigned('W'));
    withDialog("assignAxesAction", [](QDialog& dialog) {
        EXPECT_TRUE(chooser(dialog, "chooseZ"));
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
}

TEST_F(AssignmentDialogTest, CancelAndNothingChosenLeaveNoStep)
{
    withDialog("assignAxesAction", [](QDialog& dialog) {
        QTest::keyClick(chooser(dialog, "chooseX"), Qt::Key_Down);
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    withDialog("assignAxesAction", [](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Return); });
    EXPECT_EQ(1, assigned('X'));
    EXPECT_FALSE(session.history().canUndo());
}

TEST_F(AssignmentDialogTest, TheCommandsWaitForAFieldPlot)
{
    EXPECT_TRUE(action("assignAxesAction").isEnabled());
    session.perform(kernel::SetPlotType(session.activeFrame()->id, PlotType_XYLine));
    settle();
    EXPECT_FALSE(action("assignAxesAction").isEnabled());
    EXPECT_FALSE(action("assignVectorAction").isEnabled());
    session.clear();
    settle();
    EXPECT_FALSE(action("assignVectorAction").isEnabled());
}

TEST_F(AssignmentDialogTest, ThePlotMenuReachesThemByMnemonics)
{
    bool wasOpen = false;
    QTimer::singleShot(50, window.get(), [&] {
        auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        ASSERT_TRUE(dialog);
        wasOpen = dialog->objectName() == QLatin1String("assignVectorDialog");
        dialog->reject();
    });
    QTest::keyClick(window.get(), Qt::Key_P, Qt::AltModifier);
    ASSERT_TRUE(QApplication::activePopupWidget());
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_V);
    EXPECT_TRUE(wasOpen);
}

} // namespace veldraw::tests

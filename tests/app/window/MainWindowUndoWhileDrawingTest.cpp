// Undo and redo by keys while a plot is worked out beside the window.
#include "kernel/operations/EnableZone.h"
#include "kernel/operations/RenameZone.h"
#include "kernel/operations/SetValue.h"
#include "tests/app/support/DrawnWindowTest.h"
#include "tests/app/support/PictureDifference.h"
#include "tests/app/support/SampleData.h"

#include <QTest>

namespace veldraw::tests {

namespace {

/// A large zone that is not shown yet, and a step that can be undone.
class UndoWhileDrawingTest : public DrawnWindowTest
{
protected:
    UndoWhileDrawingTest()
    {
        auto const solid = SampleData::bricks(44); // too many to be looked through at once
        solid->zone(1)->enabled = false;
        openFrames({{"solid", solid}});
        showWindow();
        EXPECT_TRUE(session.perform(kernel::RenameVariable(*solid, 4, "pressure")));
        settle();
    }

    double corner() { return dataSet().field(1, 1)->group()->buffer()->value(0); }

    void undo() { QTest::keyClick(window.get(), Qt::Key_Z, Qt::ControlModifier); }
    void redo() { QTest::keyClick(window.get(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier); }

    QImage picture()
    {
        settle();
        EXPECT_TRUE(QTest::qWaitFor([this] { return !page().isDrawing(); }, 60000));
        return page().grabImage();
    }
};

} // namespace

TEST_F(UndoWhileDrawingTest, BringsThePictureOfTheStateThatHoldsInTheEnd)
{
    ASSERT_TRUE(session.perform(kernel::EnableZone(dataSet(), 1, true)));
    view();
    ASSERT_TRUE(page().isDrawing());
    ASSERT_TRUE(session.perform(kernel::SetValue(dataSet(), 1, 1, 0, -0.5, false)));
    view();
    undo();
    EXPECT_EQ(0.0, corner());
    QImage const shown = picture();
    redo();
    EXPECT_EQ(-0.5, corner());
    EXPECT_GT(differingPixels(shown, picture()), 100);
    undo();
    EXPECT_EQ(0, differingPixels(shown, picture()));
    for (bool const isEnabled : {false, true}) {
        ASSERT_TRUE(session.perform(kernel::EnableZone(dataSet(), 1, isEnabled)));
        picture();
    }
    EXPECT_EQ(0, differingPixels(shown, picture())) << "made anew of what the data are";
    EXPECT_TRUE(messages.empty());
}

} // namespace veldraw::tests

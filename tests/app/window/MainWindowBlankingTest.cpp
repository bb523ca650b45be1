// Cells that are left out of a plot by the fields of the Plot panel, in the whole window.
#include "tests/app/support/DrawnWindowTest.h"
#include "tests/app/support/SampleData.h"

#include <QAbstractSpinBox>
#include <QAction>
#include <QPushButton>
#include <QTest>

namespace veldraw::tests {

namespace {

/// A sheet with X from 0 to 2, Y from 0 to 1 and p = -5 + 10 X, whose middle is 5.
class BlankingByFieldsTest : public DrawnWindowTest
{
protected:
    BlankingByFieldsTest()
    {
        openFrames({{"sheet", SampleData::sheet(41, 21)}});
        showWindow();
        action("assignAction").trigger();
        picture();
    }

    QImage picture()
    {
        settle();
        EXPECT_TRUE(QTest::qWaitFor([this] { return !page().isDrawing(); }, 60000));
        return page().grabImage();
    }

    std::int64_t drawnCells() { return view().zones().front()->cellCount(); }
};

} // namespace

TEST_F(BlankingByFieldsTest, ThePlotFollowsAndIsAsBeforeWhenTheStepsAreTakenBack)
{
    QImage const whole = picture();
    EXPECT_EQ(40 * 20, drawnCells());
    QTest::mouseClick(window->findChild<QPushButton*>(QStringLiteral("blankingAdd")), Qt::LeftButton);
    picture();
    EXPECT_EQ(21 * 20, drawnCells()) << "p is 4.5 in column 19 of points";
    auto* const limit = window->findChild<QAbstractSpinBox*>(QStringLiteral("blankingLimit1"));
    limit->selectAll();
    QTest::keyClicks(limit, QStringLiteral("10.1"));
    QTest::keyClick(limit, Qt::Key_Return);
    picture();
    EXPECT_EQ(10 * 20, drawnCells()) << "p is 10 in column 30";
    for (int step = 0; step < 2; ++step)
        QTest::keyClick(window.get(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(whole, picture());
}

} // namespace veldraw::tests

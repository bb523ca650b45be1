// Frames are moved, sized and shown alone by mouse and keys.
#include "kernel/operations/RenameFrame.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "tests/app/support/PlotTestPage.h"
#include "tests/app/support/SampleData.h"

#include <QSignalSpy>
#include <QTest>
#include <QWindow>

#include <gtest/gtest.h>

namespace veldraw::tests {

namespace {

// On a paper of 11 by 8.5 inches, away from its edges and each other.
std::vector<std::shared_ptr<kernel::Frame>> framesToPlace()
{
    return {SampleData::frame("Flow", SampleData::block(30, 20, 12), PlotType_Cartesian3D),
            SampleData::waveFrame(SampleData::waves(300))};
}

class PageViewFrames : public testing::Test
{
protected:
    PageViewFrames()
        : page(framesToPlace(), {1112, 862}) // 100 pixels for an inch
    {
        page.session().perform(kernel::MoveFrame(page.frame(0).id, {1.0, 1.0, 4.0, 3.0}));
        page.session().perform(kernel::MoveFrame(page.frame(1).id, {6.0, 2.0, 4.0, 5.0}));
        page.session().activateFrame(page.frame(0).id);
        page.picture();
        page.session().history().clear();
    }

    /// Of the page, inches.
    static QPoint at(double x, double y)
    {
        return {6 + static_cast<int>(std::lround(100.0 * x)), 6 + static_cast<int>(std::lround(100.0 * y))};
    }

    void drag(QPoint const& from, QPoint const& to, Qt::KeyboardModifiers keys = {})
    {
        page.drag(from, to, Qt::LeftButton, keys);
        page.picture();
    }

    void expectPlace(kernel::Rectangle const& expected, std::size_t frame = 0)
    {
        kernel::Rectangle const& found = page.frame(frame).rectangle;
        constexpr double pixel = 0.011;
        EXPECT_NEAR(found.x, expected.x, pixel);
        EXPECT_NEAR(found.y, expected.y, pixel);
        EXPECT_NEAR(found.width, expected.width, pixel);
        EXPECT_NEAR(found.height, expected.height, pixel);
    }

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers)
    {
        QTest::keyClick(&page.view(), key, modifiers);
        page.picture();
    }

    QPoint buttonOf(std::size_t frame) const
    {
        kernel::Rectangle const& place = page.frame(frame).rectangle;
        return at(place.x + place.width, place.y) + QPoint(-14, 14);
    }

    mutable PlotTestPage page;
};

} // namespace

TEST_F(PageViewFrames, MoveByTheirHeaderAsOneStep)
{
    drag(at(3.0, 1.12), at(3.4, 2.42));
    page.picture("frame-moved");
    expectPlace({1.4, 2.3, 4.0, 3.0});
    EXPECT_EQ(page.session().history().undoName(), "Move Frame");
    page.session().undo();
    expectPlace({1.0, 1.0, 4.0, 3.0});
    EXPECT_FALSE(page.session().history().canUndo());
}

TEST_F(PageViewFrames, GrowAndShrinkByTheirEdgesAndCorners)
{
    drag(at(5.0, 2.0) - QPoint(3, 0), at(5.5, 2.2) - QPoint(3, 0));
    expectPlace({1.0, 1.0, 4.5, 3.0});
    drag(at(1.0, 4.0) + QPoint(3, -3), at(1.3, 4.6) + QPoint(3, -3));
    expectPlace({1.3, 1.0, 4.2, 3.6});
    drag(at(5.5, 1.0) + QPoint(-3, 3), at(5.2, 1.5) + QPoint(-3, 3));
    expectPlace({1.3, 1.5, 3.9, 3.1});
}

TEST_F(PageViewFrames, CatchTheEdgesOfThePaperAndOfOthersUnlessAltIsHeld)
{
    drag(at(5.0, 3.0) - QPoint(3, 0), at(5.96, 3.0) - QPoint(3, 0));
    EXPECT_EQ(page.frame(0).rectangle.x + page.frame(0).rectangle.width, 6.0);
    drag(at(3.0, 1.12), at(2.04, 1.17));
    EXPECT_EQ(page.frame(0).rectangle.x, 0.0);
    EXPECT_NEAR(page.frame(0).rectangle.width, 5.0, 1e-12);
    page.session().undo();
    drag(at(3.0, 1.12), at(2.04, 1.17), Qt::AltModifier);
    expectPlace({0.04, 1.05, 5.0, 3.0});
}

TEST_F(PageViewFrames, AreOutlinedWhileTheyAreDraggedAndStayWithEscape)
{
    QWindow* const window = page.view().windowHandle();
    QImage const before = page.picture();
    QTest::mousePress(window, Qt::LeftButton, {}, at(3.0, 1.12));
    QTest::mouseMove(window, at(3.2, 3.0));
    QTest::mouseMove(window, at(3.4, 5.12));
    EXPECT_GT(PlotTestPage::differingPixels(before, page.picture("frame-outline")), 50000);
    EXPECT_FALSE(page.session().history().canUndo());
    press(Qt::Key_Escape, {});
    EXPECT_EQ(PlotTestPage::differingPixels(before, page.picture()), 0);
    QTest::mouseMove(window, at(3.5, 5.3));
    QTest::mouseRelease(window, Qt::LeftButton, {}, at(3.5, 5.3));
    expectPlace({1.0, 1.0, 4.0, 3.0});
    EXPECT_EQ(PlotTestPage::differingPixels(before, page.picture()), 0);
}

TEST_F(PageViewFrames, MoveAndGrowByKeys)
{
    press(Qt::Key_Right, Qt::AltModifier | Qt::ShiftModifier);
    press(Qt::Key_Down, Qt::AltModifier | Qt::ShiftModifier);
    expectPlace({1.1, 1.1, 4.0, 3.0});
    press(Qt::Key_Left, Qt::ControlModifier | Qt::ShiftModifier);
    press(Qt::Key_Up, Qt::ControlModifier | Qt::ShiftModifier);
    expectPlace({1.1, 1.1, 3.9, 2.9});
}

TEST_F(PageViewFrames, StayWhereTheyAreWhileTheApplicationIsLocked)
{
    sdk::AppLock const lock(sdk::AppLock::RecordAsUsual);
    drag(at(3.0, 1.12), at(3.4, 2.42));
    press(Qt::Key_Right, Qt::AltModifier | Qt::ShiftModifier);
    expectPlace({1.0, 1.0, 4.0, 3.0});
    EXPECT_FALSE(page.session().history().canUndo());
}

TEST_F(PageViewFrames, TellByThePointerWhereTheyCanBeTaken)
{
    QWindow* const window = page.view().windowHandle();
    QTest::mouseMove(window, at(5.0, 2.0) - QPoint(3, 0));
    EXPECT_EQ(page.view().cursor().shape(), Qt::SizeHorCursor);
    QTest::mouseMove(window, at(5.0, 4.0) - QPoint(3, 3));
    EXPECT_EQ(page.view().cursor().shape(), Qt::SizeFDiagCursor);
    QTest::mouseMove(window, at(3.0, 2.5));
    EXPECT_EQ(page.view().cursor().shape(), Qt::ArrowCursor);
}

TEST_F(PageViewFrames, AreShownAloneByTheirButtonAndAllAgainByIt)
{
    QImage const before = page.picture();
    QSignalSpy const told(&page.view(), &app::PageView::maximized);
    page.click(buttonOf(0));
    page.picture("frame-alone");
    EXPECT_TRUE(page.view().isMaximized());
    EXPECT_EQ(page.view().plotArea(page.frame(0).id), page.view().rect().adjusted(2, 26, -2, -2));
    EXPECT_TRUE(page.view().plotArea(page.frame(1).id).isEmpty());
    EXPECT_FALSE(page.session().history().canUndo()) << "the page is as it was";

    page.session().activateFrame(page.frame(1).id);
    page.picture();
    EXPECT_EQ(page.view().plotArea(page.frame(1).id), page.view().rect().adjusted(2, 26, -2, -2));
    page.session().activateFrame(page.frame(0).id);
    page.picture();

    page.click(page.view().rect().topRight() + QPoint(-14, 14));
    EXPECT_FALSE(page.view().isMaximized());
    EXPECT_EQ(told.size(), 2);
    EXPECT_EQ(PlotTestPage::differingPixels(before, page.picture()), 0);
}

TEST_F(PageViewFrames, AreShownAloneByADoubleClickOnTheirHeader)
{
    QTest::mouseDClick(page.view().windowHandle(), Qt::LeftButton, {}, at(8.0, 2.12));
    page.picture();
    EXPECT_TRUE(page.view().isMaximized());
    EXPECT_FALSE(page.view().plotArea(page.frame(1).id).isEmpty());
    drag({500, 12}, {600, 112});
    expectPlace({6.0, 2.0, 4.0, 5.0}, 1);
    QTest::mouseDClick(page.view().windowHandle(), Qt::LeftButton, {}, {500, 12});
    EXPECT_FALSE(page.view().isMaximized());
}

TEST_F(PageViewFrames, AskForAMenuByAClickWithTheRightButtonAndNotByADrag)
{
    QSignalSpy const asked(&page.view(), &app::PageView::menuWanted);
    page.drag(page.at(0.4, 0.5), page.at(0.6, 0.5), Qt::RightButton);
    EXPECT_TRUE(asked.empty());
    QTest::mouseClick(page.view().windowHandle(), Qt::RightButton, {}, page.at(0.5, 0.5));
    ASSERT_EQ(asked.size(), 1);
    EXPECT_EQ(asked.at(0).at(0).toPoint(), page.view().mapToGlobal(page.at(0.5, 0.5)));
    EXPECT_EQ(asked.at(0).at(1).toInt(), 1) << "the block";
    QTest::mouseClick(page.view().windowHandle(), Qt::RightButton, {}, at(3.0, 7.5));
    EXPECT_EQ(asked.at(1).at(1).toInt(), 0) << "beside all frames";
    QTest::mouseClick(page.view().windowHandle(), Qt::RightButton, {}, page.at(0.5, 0.5, 1));
    EXPECT_EQ(asked.at(2).at(1).toInt(), 0) << "a line plot";
    EXPECT_EQ(page.session().activeFrame()->id, page.frame(1).id);
}

} // namespace veldraw::tests

// A box that the user drags in a line plot becomes the ranges of its axes.
#include "app/plot/PlotTheme.h"
#include "kernel/operations/SetLineAxis.h"
#include "kernel/operations/SetLineMaps.h"
#include "kernel/operations/SetPlotType.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "tests/app/support/PlotTestPage.h"
#include "tests/app/support/SampleData.h"

#include <QTest>
#include <QWindow>
#include <vtkAxis.h>

#include <cmath>
#include <gtest/gtest.h>

namespace veldraw::tests {

namespace {

class ZoomBox : public testing::Test
{
protected:
    ZoomBox()
        : page({SampleData::waveFrame(SampleData::waves(400))})
    {
        page.picture();
        page.session().history().clear();
    }

    vtkAxis& axis(int side) { return *page.lines().chart().GetAxis(side); }
    std::array<double, 2> range(int side) { return {axis(side).GetMinimum(), axis(side).GetMaximum()}; }

    /// The place of a share of the box between the axes.
    QPoint inChart(double x, double y)
    {
        int const* const low = page.lines().chart().GetPoint1();
        int const* const high = page.lines().chart().GetPoint2();
        QRect const area = page.view().plotArea(page.frame().id);
        return {area.left() + static_cast<int>(std::lround(low[0] + x * (high[0] - low[0]))),
                area.top() + area.height() - static_cast<int>(std::lround(low[1] + y * (high[1] - low[1])))};
    }

    void drag(QPoint const& from, QPoint const& to, Qt::KeyboardModifiers keys = Qt::ShiftModifier)
    {
        page.drag(from, to, Qt::LeftButton, keys);
        page.picture();
    }

    void expectShares(int side, std::array<double, 2> const& before, double from, double to)
    {
        double const width = before[1] - before[0];
        EXPECT_NEAR((range(side)[0] - before[0]) / width, from, 0.01);
        EXPECT_NEAR((range(side)[1] - before[0]) / width, to, 0.01);
    }

    PlotTestPage page;
};

} // namespace

TEST_F(ZoomBox, SetsTheRangesOfBothAxesAsOneStep)
{
    auto const below = range(vtkAxis::BOTTOM);
    auto const left = range(vtkAxis::LEFT);
    drag(inChart(0.6, 0.25), inChart(0.2, 0.75)); // from any corner to the opposite one
    page.picture("zoom-box-after");
    expectShares(vtkAxis::BOTTOM, below, 0.2, 0.6);
    expectShares(vtkAxis::LEFT, left, 0.25, 0.75);
    EXPECT_TRUE(page.frame().lineAxes.axes[0].isFixed);
    EXPECT_FALSE(page.frame().lineAxes.axes[2].isFixed) << "no curve goes by it";
    EXPECT_EQ(page.session().history().undoName(), "Zoom");
    page.session().undo();
    page.picture();
    EXPECT_EQ(range(vtkAxis::BOTTOM), below);
    EXPECT_EQ(range(vtkAxis::LEFT), left);
    EXPECT_FALSE(page.session().history().canUndo());
}

TEST_F(ZoomBox, IsSeenWhileItIsDragged)
{
    QImage const before = page.picture();
    QWindow* const window = page.view().windowHandle();
    QPoint const from = inChart(0.2, 0.2);
    QPoint const to = inChart(0.6, 0.8);
    QTest::mousePress(window, Qt::LeftButton, Qt::ShiftModifier, from);
    QMouseEvent move(QEvent::MouseMove, to, window->mapToGlobal(to), Qt::NoButton, Qt::LeftButton, Qt::ShiftModifier);
    QApplication::sendEvent(window, &move);
    QImage const shown = page.view().grab().toImage();
    PlotTestPage::save(shown, "zoom-box");
    int const perimeter = 2 * (std::abs(to.x() - from.x()) + std::abs(to.y() - from.y()));
    QRect const around = QRect(from, to).normalized().adjusted(-2, -2, 2, 2);
    EXPECT_GT(PlotTestPage::pixelsNear(shown.copy(around), app::PlotTheme::accent(), 30), perimeter * 8 / 10);
    QTest::mouseRelease(window, Qt::LeftButton, Qt::ShiftModifier, to);
    PlotTestPage::settle();
    QImage const after = page.view().grab().toImage();
    EXPECT_LT(PlotTestPage::pixelsNear(after.copy(around), app::PlotTheme::accent(), 30), perimeter / 4);
}

TEST_F(ZoomBox, ADoubleClickTakesTheRangesBackAsOneStep)
{
    auto const below = range(vtkAxis::BOTTOM);
    drag(inChart(0.2, 0.25), inChart(0.6, 0.75));
    auto const zoomed = range(vtkAxis::BOTTOM);
    QTest::mouseDClick(page.view().windowHandle(), Qt::LeftButton, {}, page.at(0.5, 0.5));
    page.picture();
    EXPECT_EQ(range(vtkAxis::BOTTOM), below);
    EXPECT_EQ(page.session().history().undoName(), "Fit");
    page.session().undo();
    page.picture();
    EXPECT_EQ(range(vtkAxis::BOTTOM), zoomed);
    EXPECT_EQ(page.session().history().undoName(), "Zoom");
}

TEST_F(ZoomBox, OfTwoAxesOfOneDirectionCutsBoth)
{
    kernel::LineMapSettings settings;
    settings.isOnSecondAxis = true;
    ASSERT_TRUE(page.session().perform(kernel::SetLineMaps(page.frame().id, {2}, settings)));
    ASSERT_TRUE(
        page.session().perform(kernel::SetLineAxis(page.frame().id, kernel::LineAxisKind::Y2, {false, 0, 1, "c"})));
    page.picture();
    auto const right = range(vtkAxis::RIGHT);
    drag(inChart(0.2, 0.25), inChart(0.6, 0.75));
    expectShares(vtkAxis::RIGHT, right, 0.25, 0.75);
    EXPECT_EQ(axis(vtkAxis::RIGHT).GetTitle(), "c") << "titles stay";
}

TEST_F(ZoomBox, OfALogarithmicAxisHasItsValues)
{
    ASSERT_TRUE(page.session().perform(kernel::SetPlotOption(page.frame().id, &kernel::Frame::logX, true)));
    page.picture();
    auto const below = range(vtkAxis::BOTTOM);
    drag(inChart(0.2, 0.25), inChart(0.6, 0.75));
    expectShares(vtkAxis::BOTTOM, below, 0.2, 0.6);
    EXPECT_NEAR(std::log10(page.frame().lineAxes.axes[0].min), range(vtkAxis::BOTTOM)[0], 1e-12);
}

TEST_F(ZoomBox, LeavesAnAxisAloneAlongWhichItIsThin)
{
    auto const left = range(vtkAxis::LEFT);
    auto const below = range(vtkAxis::BOTTOM);
    drag(inChart(0.2, 0.5), inChart(0.6, 0.5));
    expectShares(vtkAxis::BOTTOM, below, 0.2, 0.6);
    EXPECT_EQ(range(vtkAxis::LEFT), left);
    EXPECT_FALSE(page.frame().lineAxes.axes[1].isFixed);
}

TEST_F(ZoomBox, NeedsShiftAndAWayAndNoCommandThatRuns)
{
    drag(inChart(0.2, 0.25), inChart(0.6, 0.75), {});
    EXPECT_FALSE(page.session().history().canUndo()) << "that moves the view";
    page.view().fitActiveFrame();
    page.picture();
    auto const below = range(vtkAxis::BOTTOM);
    drag(inChart(0.2, 0.25), inChart(0.2, 0.25) + QPoint(1, 1));
    {
        sdk::AppLock const lock(sdk::AppLock::RecordAsUsual);
        drag(inChart(0.2, 0.25), inChart(0.6, 0.75));
    }
    EXPECT_EQ(range(vtkAxis::BOTTOM), below);
    EXPECT_FALSE(page.session().history().canUndo());
}

TEST(ZoomBoxInAFieldPlot, MovesTheViewAsEver)
{
    PlotTestPage page({SampleData::frame("sheet", SampleData::sheet(5, 5), PlotType_Cartesian2D)});
    QImage const before = page.plot();
    page.drag(page.at(0.4, 0.4), page.at(0.6, 0.6), Qt::LeftButton, Qt::ShiftModifier);
    EXPECT_GT(PlotTestPage::differingPixels(before, page.plot()), 500);
    EXPECT_FALSE(page.session().history().canUndo());
}

} // namespace veldraw::tests

// Ways to look at plots: without perspective, around a place, as before, and like other plots.
#include "kernel/operations/EnableZone.h"
#include "kernel/operations/RotateZones.h"
#include "kernel/operations/SetPlotType.h"
#include "tests/app/support/PlotTestPage.h"
#include "tests/app/support/SampleData.h"

#include <QTest>
#include <vtkCamera.h>

#include <cmath>
#include <gtest/gtest.h>

namespace veldraw::tests {

using app::ViewPoint;
using app::ViewSide;
using app::ViewStep;

namespace {

std::shared_ptr<kernel::Frame> bricksInSpace(char const* name = "Bricks")
{
    return SampleData::frame(name, SampleData::bricks(5), PlotType_Cartesian3D);
}

/// Draws what is scheduled, and tells how the plot is looked at.
ViewPoint viewOf(PlotTestPage& page, std::size_t index = 0)
{
    page.picture();
    return page.field(index).viewPoint().value();
}

void expectSameEye(ViewPoint const& expected, ViewPoint const& found)
{
    for (std::size_t n = 0; n < 3; ++n) {
        EXPECT_NEAR(expected.eye[n], found.eye[n], 1e-12);
        EXPECT_NEAR(expected.focus[n], found.focus[n], 1e-12);
        EXPECT_NEAR(expected.up[n], found.up[n], 1e-12);
    }
}

/// The length of the sheet's picture of an edge of the box along X, at a place on the other axes; shares of the plot.
double seenLength(app::FieldView const& view, double y, double z)
{
    app::PlotSpace const& space = view.space();
    double const inset = 0.02 * space.length(0);
    auto const left = view.seenAt({space.min(0) + inset, y, z});
    auto const right = view.seenAt({space.max(0) - inset, y, z});
    EXPECT_TRUE(left && right);
    return left && right ? std::hypot(right->x() - left->x(), right->y() - left->y()) : 0.0;
}

void setParallel(PlotTestPage& page, bool isOn)
{
    ASSERT_TRUE(
        page.session().perform(kernel::SetPlotOption(page.frame().id, &kernel::Frame::parallelProjection, isOn)));
    page.picture();
}

} // namespace

TEST(PageViewViews, ParallelProjectionShowsEdgesNearAndFarEquallyLong)
{
    PlotTestPage page({bricksInSpace()});
    page.view().lookFrom(ViewSide::MinusY);
    page.picture();
    auto const nearToFar = [&page] {
        app::PlotSpace const& space = page.field().space();
        return seenLength(page.field(), space.min(1), space.min(2)) /
               seenLength(page.field(), space.max(1), space.min(2));
    };
    EXPECT_GT(nearToFar(), 1.2);
    setParallel(page, true);
    page.picture("parallel-from-the-front");
    EXPECT_NEAR(1.0, nearToFar(), 1e-9);
    page.view().lookFrom(ViewSide::Isometric);
    page.picture("parallel-isometric");
    EXPECT_NEAR(1.0, nearToFar(), 1e-9);
    EXPECT_EQ("Projection", page.session().history().undoName());
}

TEST(PageViewViews, ParallelProjectionFillsTheFrameAndIsZoomedAndMovedWithTheMouse)
{
    PlotTestPage page({bricksInSpace()});
    setParallel(page, true);
    QImage const whole = page.plot(0, "parallel");
    EXPECT_GT(PlotTestPage::colouredPixels(whole), whole.width() * whole.height() / 8);
    app::PlotSpace const& space = page.field().space();
    double const y = space.max(1);
    double const z = space.min(2);
    page.field().zoom(0.5, {0.5, 0.5});
    page.picture();
    double const before = seenLength(page.field(), y, z);
    page.field().zoom(1.25, {0.5, 0.5});
    page.picture();
    EXPECT_NEAR(1.25, seenLength(page.field(), y, z) / before, 1e-9);
    auto const at = page.field().seenAt({space.min(0), y, z});
    QPointF const from(0.5, 0.5);
    QPointF const to(0.55, 0.47);
    page.field().pan(from, to);
    auto const moved = page.field().seenAt({space.min(0), y, z});
    ASSERT_TRUE(at && moved);
    EXPECT_NEAR(0.05, moved->x() - at->x(), 1e-9) << "as far as the mouse";
    EXPECT_NEAR(-0.03, moved->y() - at->y(), 1e-9);
}

TEST(PageViewViews, TheWheelLeavesWhatIsUnderTheMouseThere)
{
    PlotTestPage page({bricksInSpace()});
    for (bool const isParallel : {false, true}) {
        setParallel(page, isParallel);
        page.view().lookFrom(ViewSide::PlusZ); // the middle of the box is as far away as the focus
        page.picture();
        app::PlotSpace const& space = page.field().space();
        double const z = 0.5 * (space.min(2) + space.max(2));
        std::array<double, 3> const place{0.7 * space.min(0) + 0.3 * space.max(0),
                                          0.4 * space.min(1) + 0.6 * space.max(1), z};
        auto const before = page.field().seenAt(place);
        ASSERT_TRUE(before);
        page.field().zoom(1.6, *before);
        page.picture();
        auto const after = page.field().seenAt(place);
        ASSERT_TRUE(after);
        EXPECT_NEAR(before->x(), after->x(), 1e-9);
        EXPECT_NEAR(before->y(), after->y(), 1e-9);
    }
}

TEST(PageViewViews, ADragWithCtrlRotatesAroundThePlaceUnderTheMouse)
{
    PlotTestPage page({bricksInSpace()});
    for (bool const isParallel : {false, true}) {
        setParallel(page, isParallel);
        page.view().fitActiveFrame();
        page.picture();
        QPointF const where(0.42, 0.55);
        page.field().rotateAround(where);
        auto const place = page.field().sceneAt(where);
        ASSERT_TRUE(place);
        app::PlotSpace const& space = page.field().space();
        std::array<double, 3> const inData{space.toValue(0, (*place)[0]), space.toValue(1, (*place)[1]),
                                           space.toValue(2, (*place)[2])};
        page.field().rotateAround(std::nullopt);
        ViewPoint const before = viewOf(page);
        page.drag(page.at(where.x(), 1.0 - where.y()), page.at(where.x() + 0.2, 1.0 - where.y() - 0.1), Qt::LeftButton,
                  Qt::ControlModifier);
        EXPECT_NE(before.eye, viewOf(page).eye);
        auto const seen = page.field().seenAt(inData);
        ASSERT_TRUE(seen);
        EXPECT_NEAR(where.x(), seen->x(), 0.003);
        EXPECT_NEAR(where.y(), seen->y(), 0.003);
    }
}

TEST(PageViewViews, ADragAroundTheMiddleDoesWhatADragWithoutCtrlDoes)
{
    PlotTestPage page({bricksInSpace()});
    page.picture();
    ViewPoint const start = viewOf(page);
    page.drag(page.at(0.02, 0.02), page.at(0.22, 0.12), Qt::LeftButton, Qt::ControlModifier);
    ViewPoint const aroundNothing = viewOf(page);
    page.field().setViewPoint(start);
    page.drag(page.at(0.02, 0.02), page.at(0.22, 0.12));
    expectSameEye(viewOf(page), aroundNothing);
}

TEST(PageViewViews, GoBackAndOnOneChangeAtATime)
{
    PlotTestPage page({bricksInSpace()});
    ViewPoint const first = viewOf(page);
    page.drag(page.at(0.5, 0.5), page.at(0.7, 0.4));
    ViewPoint const second = viewOf(page);
    page.view().lookFrom(ViewSide::PlusX);
    ViewPoint const third = viewOf(page);
    page.wheel(page.at(0.5, 0.5), 3);
    page.wheel(page.at(0.5, 0.5), 2);
    ViewPoint const fourth = viewOf(page);
    for (ViewPoint const* const view : {&third, &second, &first}) {
        EXPECT_TRUE(page.view().goToView(ViewStep::Back));
        EXPECT_EQ(*view, viewOf(page));
    }
    EXPECT_FALSE(page.view().goToView(ViewStep::Back));
    for (ViewPoint const* const view : {&second, &third, &fourth}) {
        EXPECT_TRUE(page.view().goToView(ViewStep::On));
        EXPECT_EQ(*view, viewOf(page));
    }
    EXPECT_FALSE(page.view().goToView(ViewStep::On));
    EXPECT_TRUE(page.view().goToView(ViewStep::Back));
    page.view().fitActiveFrame();
    EXPECT_FALSE(page.view().goToView(ViewStep::On)) << "a change leads somewhere else";
}

TEST(PageViewViews, AreNoStepsOfTheHistoryAndSurviveUndo)
{
    PlotTestPage page({bricksInSpace()});
    ViewPoint const first = viewOf(page);
    page.drag(page.at(0.5, 0.5), page.at(0.7, 0.4));
    EXPECT_FALSE(page.session().history().canUndo());
    setParallel(page, true);
    ASSERT_TRUE(page.session().undo());
    EXPECT_TRUE(page.view().goToView(ViewStep::Back));
    EXPECT_EQ(first, viewOf(page));
}

TEST(PageViewViews, AreCopiedFromOneFrameToAnother)
{
    PlotTestPage page({bricksInSpace("a"), bricksInSpace("b")}, {1200, 620});
    page.picture();
    page.session().activateFrame(page.frame(0).id);
    EXPECT_FALSE(page.view().pasteView()) << "nothing is copied yet";
    page.drag(page.at(0.5, 0.5, 0), page.at(0.7, 0.4, 0));
    page.wheel(page.at(0.5, 0.5, 0), 4);
    ViewPoint const copied = viewOf(page, 0);
    ASSERT_TRUE(page.view().copyView());
    page.session().activateFrame(page.frame(1).id);
    ViewPoint const before = viewOf(page, 1);
    EXPECT_TRUE(page.view().pasteView());
    expectSameEye(copied, viewOf(page, 1));
    EXPECT_EQ(0, PlotTestPage::differingPixels(page.plot(0), page.plot(1)));
    EXPECT_TRUE(page.view().goToView(ViewStep::Back)) << "it is a change like others";
    EXPECT_EQ(before, viewOf(page, 1));
}

TEST(PageViewViews, OfAnotherKindOfPlotAreNotPasted)
{
    PlotTestPage page({bricksInSpace(), SampleData::frame("Sheet", SampleData::sheet(21, 11), PlotType_Cartesian2D)});
    page.picture();
    page.session().activateFrame(page.frame(0).id);
    ASSERT_TRUE(page.view().copyView());
    page.session().activateFrame(page.frame(1).id);
    ViewPoint const before = viewOf(page, 1);
    EXPECT_FALSE(page.view().pasteView());
    EXPECT_EQ(before, viewOf(page, 1));
}

TEST(PageViewViews, SeeTheSamePartOfTheDataInAPlotOfOtherExtent)
{
    PlotTestPage page({SampleData::frame("small", SampleData::sheet(21, 11), PlotType_Cartesian2D),
                       SampleData::frame("large", SampleData::sheet(41, 31), PlotType_Cartesian2D)},
                      {1200, 620});
    page.picture();
    page.session().activateFrame(page.frame(0).id);
    page.wheel(page.at(0.3, 0.4, 0), 5);
    page.picture();
    ASSERT_TRUE(page.view().copyView());
    page.session().activateFrame(page.frame(1).id);
    ASSERT_TRUE(page.view().pasteView());
    page.picture();
    app::PlotSpace const& space = page.field(0).space();
    std::array<double, 3> const place{0.6 * space.min(0) + 0.4 * space.max(0), 0.4 * space.min(1) + 0.6 * space.max(1),
                                      0.0};
    auto const inSmall = page.field(0).seenAt(place);
    auto const inLarge = page.field(1).seenAt(place);
    ASSERT_TRUE(inSmall && inLarge);
    EXPECT_NEAR(inSmall->x(), inLarge->x(), 0.02);
    EXPECT_NEAR(inSmall->y(), inLarge->y(), 0.02);
}

TEST(PageViewViews, FollowTheOneThatIsMovedWhileTheyAreLinked)
{
    PlotTestPage page({bricksInSpace("a"), bricksInSpace("b"),
                       SampleData::frame("Sheet", SampleData::sheet(21, 11), PlotType_Cartesian2D)},
                      {1400, 620});
    page.picture();
    page.session().activateFrame(page.frame(0).id);
    page.drag(page.at(0.5, 0.5, 0), page.at(0.6, 0.4, 0));
    ViewPoint const sheet = viewOf(page, 2);
    EXPECT_NE(viewOf(page, 0).eye, viewOf(page, 1).eye);
    page.view().linkViews(true);
    expectSameEye(viewOf(page, 0), viewOf(page, 1));
    page.drag(page.at(0.5, 0.5, 1), page.at(0.3, 0.6, 1));
    page.wheel(page.at(0.5, 0.5, 1), -2);
    expectSameEye(viewOf(page, 1), viewOf(page, 0));
    EXPECT_EQ(sheet, viewOf(page, 2)) << "another kind of plot";
    page.view().linkViews(false);
    page.drag(page.at(0.5, 0.5, 1), page.at(0.3, 0.6, 1));
    EXPECT_NE(viewOf(page, 0).eye, viewOf(page, 1).eye);
}

TEST(PageViewViews, AreRememberedByNumber)
{
    PlotTestPage page({bricksInSpace()});
    page.picture();
    EXPECT_FALSE(page.view().recallView(1));
    page.view().lookFrom(ViewSide::PlusX);
    ViewPoint const first = viewOf(page);
    EXPECT_EQ(1, page.view().rememberView());
    page.view().lookFrom(ViewSide::PlusZ);
    EXPECT_EQ(2, page.view().rememberView());
    EXPECT_TRUE(page.view().recallView(1));
    EXPECT_EQ(first, viewOf(page));
    for (int number = 3; number <= app::PageView::mostRemembered; ++number)
        EXPECT_EQ(number, page.view().rememberView());
    EXPECT_EQ(0, page.view().rememberView());
}

TEST(PageViewViews, ThatWereFittedAreFittedInAFrameOfAnotherSize)
{
    PlotTestPage page({bricksInSpace()}, {900, 640});
    page.view().lookFrom(ViewSide::Isometric);
    page.picture();
    EXPECT_EQ(1, page.view().rememberView());
    page.view().lookFrom(ViewSide::PlusX);
    page.view().resize(500, 700);
    PlotTestPage::settle();
    page.view().lookFrom(ViewSide::Isometric);
    QImage const fitted = page.plot();
    page.view().lookFrom(ViewSide::PlusX);
    page.picture();
    ASSERT_TRUE(page.view().recallView(1));
    EXPECT_LT(PlotTestPage::differingPixels(fitted, page.plot()), 50);
}

} // namespace veldraw::tests

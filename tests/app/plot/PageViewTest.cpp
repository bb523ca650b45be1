#include "app/plot/PlotTheme.h"
#include "kernel/operations/AddFrame.h"
#include "kernel/operations/DeleteVariables.h"
#include "kernel/operations/DuplicateZones.h"
#include "kernel/operations/EnableZone.h"
#include "kernel/operations/LineMapOperation.h"
#include "kernel/operations/RenameFrame.h"
#include "kernel/operations/SetPlotType.h"
#include "tests/app/support/PlotTestPage.h"
#include "tests/app/support/SampleData.h"

#include <QApplication>
#include <QTest>
#include <vtkCallbackCommand.h>
#include <vtkCamera.h>
#include <vtkProperty.h>
#include <vtkRenderWindow.h>
#include <vtkRendererCollection.h>

#include <array>
#include <gtest/gtest.h>

namespace veldraw::tests {

namespace {

std::vector<std::shared_ptr<kernel::Frame>> twoFrames()
{
    return {SampleData::frame("Flow", SampleData::block(30, 20, 12), PlotType_Cartesian3D),
            SampleData::waveFrame(SampleData::waves(300))};
}

} // namespace

TEST(PageView, InvitesToOpenAFileWhenThePageIsEmpty)
{
    PlotTestPage page({});
    QImage const picture = page.picture("empty-page");
    EXPECT_EQ(page.view().accessibleDescription(), QStringLiteral("Open a file to begin."));
    EXPECT_GT(PlotTestPage::pixelsNear(picture, app::PlotTheme::quietText(), 30), 100);
}

TEST(PageView, SaysOnAnEmptyPageWhichFileIsBeingOpened)
{
    PlotTestPage page({});
    QImage const before = page.picture();
    page.view().showOpening(QStringLiteral("wing.vtm"));
    EXPECT_EQ(page.view().accessibleDescription(), QStringLiteral("Opening wing.vtm…"));
    EXPECT_NE(page.picture("page-opening"), before);
    page.view().showOpening({});
    EXPECT_EQ(page.view().accessibleDescription(), QStringLiteral("Open a file to begin."));
    EXPECT_EQ(page.picture(), before);
}

TEST(PageView, StandsASessionWithoutAnyPage)
{
    PlotTestPage page(twoFrames());
    page.session().removeAllPages();
    page.picture();
    EXPECT_EQ(page.view().accessibleDescription(), QStringLiteral("Open a file to begin."));
}

TEST(PageView, ShowsFramesSideBySide)
{
    PlotTestPage page(twoFrames(), {1200, 620});
    page.picture("two-frames");
    EXPECT_GT(PlotTestPage::colouredPixels(page.plot(0)), 10000);
    EXPECT_GT(PlotTestPage::pixelsNear(page.plot(1), app::PlotTheme::curve(0), 30), 500);
    EXPECT_FALSE(page.view().plotArea(page.frame(0).id).intersects(page.view().plotArea(page.frame(1).id)));
}

TEST(PageView, TakesAPictureWithoutBordersAndHeadersOfEveryFrameInItsPlace)
{
    PlotTestPage page(twoFrames(), {1200, 620});
    QImage const screen = page.picture();
    QImage const picture = page.view().takePicture();
    PlotTestPage::save(picture, "taken-picture");
    EXPECT_EQ(picture.size(), screen.size());
    for (QColor const& colour : {app::PlotTheme::accent(), app::PlotTheme::accentHeader(), app::PlotTheme::desk()}) {
        EXPECT_GT(PlotTestPage::pixelsNear(screen, colour, 1), 100) << colour.name().toStdString();
        EXPECT_EQ(PlotTestPage::pixelsNear(picture, colour, 1), 0) << colour.name().toStdString();
    }
    QImage const left = picture.copy(0, 0, 600, 620);
    QImage const right = picture.copy(600, 0, 600, 620);
    EXPECT_GT(PlotTestPage::colouredPixels(left), 10000);
    EXPECT_EQ(PlotTestPage::pixelsNear(left, app::PlotTheme::curve(1), 10), 0);
    EXPECT_GT(PlotTestPage::pixelsNear(right, app::PlotTheme::curve(1), 30), 500);
    EXPECT_LT(PlotTestPage::differingPixels(screen, page.picture()), 100)
        << "the screen is as before, but for rounding";
}

TEST(PageView, TakesAPictureWithoutTheMarksOfWhatIsPicked)
{
    PlotTestPage page({SampleData::frame("Sheet", SampleData::sheet(21, 11), PlotType_Cartesian2D)});
    page.click(page.at(0.5, 0.5));
    QImage const screen = page.picture();
    ASSERT_GT(PlotTestPage::pixelsNear(screen, app::PlotTheme::picked(), 20), 100);
    EXPECT_EQ(PlotTestPage::pixelsNear(page.view().takePicture(), app::PlotTheme::picked(), 20), 0);
    EXPECT_EQ(PlotTestPage::differingPixels(screen, page.picture()), 0);
}

TEST(PageView, TakesAPictureThatSaysWhatIsMissingInIt)
{
    PlotTestPage page({SampleData::frame("Sheet", SampleData::sheet(21, 11), PlotType_Cartesian2D)});
    ASSERT_TRUE(page.session().perform(kernel::DeleteVariables(*page.frame().dataSet, {1})));
    EXPECT_GT(PlotTestPage::inkedPixels(page.view().takePicture()), 200);
}

TEST(PageView, FillsALargerWindow)
{
    PlotTestPage page(twoFrames(), {700, 420});
    page.picture("small");
    int const before = PlotTestPage::colouredPixels(page.plot(0));
    page.view().resize(1400, 840);
    PlotTestPage::settle();
    EXPECT_GT(PlotTestPage::colouredPixels(page.plot(0, "large")), 2 * before);
}

TEST(PageView, ActivatesTheFrameThatIsClicked)
{
    PlotTestPage page(twoFrames());
    QImage const before = page.picture();
    page.click(page.at(0.5, 0.5, 1));
    EXPECT_EQ(page.session().activeFrame()->id, page.frame(1).id);
    EXPECT_GT(PlotTestPage::differingPixels(before, page.picture("second-active")), 500);
    page.click(page.view().plotArea(page.frame(0).id).topLeft() - QPoint(-20, 10));
    EXPECT_EQ(page.session().activeFrame()->id, page.frame(0).id) << "a click on the header counts";
}

TEST(PageView, ShowsAnotherPictureForAnotherPlotType)
{
    PlotTestPage page({SampleData::frame("Block", SampleData::block(30, 20, 12), PlotType_Cartesian3D)});
    QImage const space = page.plot();
    ASSERT_TRUE(page.session().perform(kernel::SetPlotType(page.frame().id, PlotType_Cartesian2D)));
    QImage const plane = page.plot(0, "plane-of-block");
    EXPECT_GT(PlotTestPage::differingPixels(space, plane), 20000);
    EXPECT_NE(dynamic_cast<app::FieldView*>(page.view().frameView(page.frame().id)), nullptr);
    ASSERT_TRUE(page.session().perform(kernel::SetPlotType(page.frame().id, PlotType_XYLine)));
    page.picture("line-of-block");
    EXPECT_EQ(dynamic_cast<app::FieldView*>(page.view().frameView(page.frame().id)), nullptr);
    ASSERT_TRUE(page.session().undo());
    ASSERT_TRUE(page.session().undo());
    EXPECT_EQ(PlotTestPage::differingPixels(space, page.plot()), 0);
}

TEST(PageView, DrawsOnceInTheNextTurnOfTheLoopHoweverManyEventsCome)
{
    PlotTestPage page({SampleData::frame("Sheet", SampleData::sheet(21, 11), PlotType_Cartesian2D)});
    app::FieldView& view = page.field();
    vtkActor* const actor = view.actors().at(0);
    for (int n = 0; n < 50; ++n)
        ASSERT_TRUE(
            page.session().perform(kernel::SetPlotOption(page.frame().id, &kernel::Frame::showMesh, n % 2 == 0)));
    EXPECT_EQ(view.actors().at(0), actor) << "nothing is built inside an event";
    int draws = 0;
    vtkNew<vtkCallbackCommand> counter;
    counter->SetClientData(&draws);
    counter->SetCallback([](vtkObject*, unsigned long, void* count, void*) { ++*static_cast<int*>(count); });
    view.stage().AddObserver(vtkCommand::StartEvent, counter);
    PlotTestPage::settle();
    EXPECT_EQ(draws, 1);
    EXPECT_EQ(view.zones().size(), 1U);
    EXPECT_EQ(view.actors().at(0)->GetProperty()->GetEdgeVisibility(), 0);
}

TEST(PageView, FollowsFramesThatComeAndGo)
{
    PlotTestPage page(twoFrames());
    auto const second = page.frame(1).id;
    ASSERT_TRUE(page.session().perform(kernel::DeleteFrame(second)));
    page.picture();
    EXPECT_EQ(page.view().frameView(second), nullptr);
    ASSERT_TRUE(page.session().undo());
    page.picture();
    EXPECT_NE(page.view().frameView(second), nullptr);
    auto const fresh = page.session().createFrame("New", {2.0, 2.0, 4.0, 3.0});
    ASSERT_TRUE(fresh);
    page.picture("third-on-top");
    EXPECT_EQ(page.view().message(fresh->id), QStringLiteral("This frame has no data set."));
}

TEST(PageView, DrawsCopiesOfZonesInEveryFrameOfTheirDataSetUntilTheyAreUndone)
{
    auto const sheet = SampleData::sheet(21, 11);
    PlotTestPage page({SampleData::frame("Left", sheet, PlotType_Cartesian2D),
                       SampleData::frame("Right", sheet, PlotType_Cartesian2D),
                       SampleData::frame("Other", SampleData::sheet(5, 5), PlotType_Cartesian2D)});
    page.picture();
    auto const drawn = [&page] {
        page.picture("copies-of-zones");
        return std::array<std::size_t, 3>{page.field(0).zones().size(), page.field(1).zones().size(),
                                          page.field(2).zones().size()};
    };
    QImage const before = page.plot(1);
    ASSERT_TRUE(page.session().perform(kernel::DuplicateZones(*sheet, {1})));
    EXPECT_EQ(drawn(), (std::array<std::size_t, 3>{2, 2, 1}));
    EXPECT_EQ(PlotTestPage::differingPixels(before, page.plot(1)), 0) << "a copy lies where its source lies";
    ASSERT_TRUE(page.session().perform(kernel::EnableZone(*sheet, 1, false)));
    EXPECT_EQ(drawn(), (std::array<std::size_t, 3>{1, 1, 1}));
    EXPECT_EQ(PlotTestPage::differingPixels(before, page.plot(1)), 0) << "and shows the same values";
    page.session().undo();
    page.session().undo();
    EXPECT_EQ(drawn(), (std::array<std::size_t, 3>{1, 1, 1}));
    EXPECT_EQ(page.field(0).zones().front()->zoneNumber(), 1);
    page.session().redo();
    EXPECT_EQ(drawn(), (std::array<std::size_t, 3>{2, 2, 1}));
}

TEST(PageView, ShowsACurveOfACopyUntilItIsUndone)
{
    auto const waves = SampleData::waves(30);
    PlotTestPage page({SampleData::waveFrame(waves)});
    ASSERT_TRUE(page.session().perform(kernel::DuplicateZones(*waves, {1})));
    ASSERT_TRUE(page.session().perform(kernel::SetLinePlot(page.frame().id, 2, 1, 2)));
    page.picture();
    EXPECT_EQ(page.message(), QString());
    page.session().undo();
    page.session().undo();
    page.picture();
    EXPECT_EQ(page.message(), QString()) << "the map shows the source again";
}

TEST(PageView, DrawsFramesThatLieOverEachOtherInTheirOrder)
{
    PlotTestPage page(twoFrames(), {1000, 700});
    ASSERT_TRUE(page.session().perform(kernel::MoveFrame(page.frame(0).id, {0.0, 0.0, 11.0, 8.5})));
    ASSERT_TRUE(page.session().perform(kernel::MoveFrame(page.frame(1).id, {6.0, 0.5, 4.5, 3.5})));
    page.picture("overlap");
    QImage const upper = page.plot(1);
    EXPECT_GT(PlotTestPage::pixelsNear(upper, app::PlotTheme::curve(0), 30), 300);
    page.click(page.at(0.5, 0.5, 1));
    EXPECT_EQ(page.session().activeFrame()->id, page.frame(1).id);
}

TEST(PageView, WaitsWhileDrawingIsSuspended)
{
    PlotTestPage page({SampleData::frame("Sheet", SampleData::sheet(21, 11), PlotType_Cartesian2D)});
    QImage const before = page.picture();
    page.session().setDrawing(false);
    ASSERT_TRUE(page.session().perform(kernel::SetPlotOption(page.frame().id, &kernel::Frame::showMesh, true)));
    EXPECT_EQ(PlotTestPage::differingPixels(before, page.picture()), 0);
    page.session().setDrawing(true);
    EXPECT_GT(PlotTestPage::differingPixels(before, page.picture()), 500);
}

TEST(PageView, FitsWhenTheKernelAsksForIt)
{
    PlotTestPage page({SampleData::frame("Sheet", SampleData::sheet(21, 11), PlotType_Cartesian2D)});
    QImage const before = page.picture();
    page.wheel(page.at(0.3, 0.3), 5);
    EXPECT_GT(PlotTestPage::differingPixels(before, page.picture()), 500);
    ASSERT_TRUE(page.session().fitData());
    EXPECT_EQ(PlotTestPage::differingPixels(before, page.picture()), 0);
}

TEST(PageView, MovesByTheKeyboard)
{
    PlotTestPage page({SampleData::frame("Sheet", SampleData::sheet(21, 11), PlotType_Cartesian2D)});
    QImage const before = page.picture();
    page.view().setFocus();
    vtkCamera* const camera = page.field().stage().GetActiveCamera();
    double const whole = camera->GetParallelScale();
    QTest::keyClick(page.view().windowHandle(), Qt::Key_Plus);
    EXPECT_LT(camera->GetParallelScale(), whole);
    QTest::keyClick(page.view().windowHandle(), Qt::Key_Left);
    EXPECT_GT(camera->GetFocalPoint()[0], 0.01);
    QTest::keyClick(page.view().windowHandle(), Qt::Key_Home);
    EXPECT_EQ(PlotTestPage::differingPixels(before, page.picture()), 0);
}

TEST(PageView, KeepsWhatIsOnTheGraphicsCardWhileAPlotIsMovedOrOneIsBroughtUpToDate)
{
    PlotTestPage page({SampleData::frame("Block", SampleData::block(20, 15, 10), PlotType_Cartesian3D),
                       SampleData::frame("Sheet", SampleData::sheet(9, 9), PlotType_Cartesian2D)});
    QImage const before = page.picture();
    // A plot that is taken out of the window, even for a moment, lets everything go there.
    vtkRendererCollection& plots = *page.field().stage().GetRenderWindow()->GetRenderers();
    vtkMTimeType const time = plots.GetMTime();
    page.drag(page.at(0.4, 0.5), page.at(0.6, 0.6));
    page.session().perform(kernel::SetPlotOption(page.frame(1).id, &kernel::Frame::showMesh, true));
    EXPECT_GT(PlotTestPage::differingPixels(before, page.picture()), 100);
    EXPECT_EQ(time, plots.GetMTime());
    page.session().perform(kernel::DeleteFrame(page.frame(1).id));
    page.picture();
    EXPECT_NE(time, plots.GetMTime());
}

TEST(PageView, StopsListeningWhenItGoes)
{
    kernel::Session session;
    session.openPage(twoFrames());
    int const before = session.events().listenerCount();
    {
        app::PageView view(session);
        EXPECT_EQ(session.events().listenerCount(), before + 1);
        EXPECT_NE(session.display(), nullptr);
    }
    EXPECT_EQ(session.events().listenerCount(), before);
    EXPECT_EQ(session.display(), nullptr);
    ASSERT_TRUE(session.perform(kernel::SetPlotType(session.activeFrame()->id, PlotType_Cartesian2D)));
}

} // namespace veldraw::tests

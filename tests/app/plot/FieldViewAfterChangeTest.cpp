#include "kernel/operations/DeleteVariables.h"
#include "kernel/operations/EnableZone.h"
#include "kernel/operations/MirrorZones.h"
#include "kernel/operations/SetPlotType.h"
#include "tests/app/support/PlotTestPage.h"
#include "tests/app/support/SampleData.h"

#include <vtkCamera.h>

#include <array>
#include <cmath>
#include <gtest/gtest.h>

namespace veldraw::tests {

namespace {

using Point = std::array<double, 3>;

/// What becomes of the view when operations change how far the data reach.
class ViewAfterChange : public ::testing::TestWithParam<PlotType_e>
{
protected:
    ViewAfterChange()
        : set(data())
        , page({frame(set)})
    {
        page.picture();
    }

    bool isInSpace() const { return GetParam() == PlotType_Cartesian3D; }
    std::shared_ptr<kernel::DataSet> data() const
    {
        return isInSpace() ? SampleData::block(12, 9, 7) : SampleData::sheet(41, 21);
    }
    std::shared_ptr<kernel::Frame> frame(std::shared_ptr<kernel::DataSet> const& shown) const
    {
        return SampleData::frame("Data", shown, GetParam());
    }

    // The largest X becomes the smallest, so that the extent doubles.
    void mirror()
    {
        ASSERT_TRUE(page.session().perform(kernel::MirrorZones(page.frame().id, {1}, 'X')));
        page.picture();
    }

    void moveView()
    {
        page.drag(page.at(0.4, 0.5), page.at(0.5, 0.45), Qt::MiddleButton);
        page.wheel(page.at(0.3, 0.5), 3);
    }

    vtkCamera& camera() { return *page.field().stage().GetActiveCamera(); }

    // Where a place of the data stands on the screen.
    static std::array<double, 2> onScreen(app::FieldView const& view, Point const& place)
    {
        view.stage().SetWorldPoint(view.space().toScene(0, place[0]), view.space().toScene(1, place[1]),
                                   view.space().toScene(2, place[2]), 1.0);
        view.stage().WorldToDisplay();
        double const* const shown = view.stage().GetDisplayPoint();
        return {shown[0], shown[1]};
    }

    std::vector<Point> places() const
    {
        std::vector<Point> found;
        for (std::int64_t const point : {0, 17, 160})
            found.push_back({set->field(1, 1)->group()->buffer()->value(point),
                             set->field(1, 2)->group()->buffer()->value(point),
                             isInSpace() ? set->field(1, 3)->group()->buffer()->value(point) : 0.0});
        return found;
    }

    std::vector<std::array<double, 2>> placesOnScreen()
    {
        std::vector<std::array<double, 2>> shown;
        for (Point const& place : places())
            shown.push_back(onScreen(page.field(), place));
        return shown;
    }

    void expectSamePlaces(std::vector<std::array<double, 2>> const& before, char const* when)
    {
        auto const after = placesOnScreen();
        for (std::size_t n = 0; n < before.size(); ++n)
            for (std::size_t axis = 0; axis < 2; ++axis)
                EXPECT_NEAR(before[n][axis], after[n][axis], 0.01) << when << ", place " << n;
    }

    // As a frame looks that has just been opened with the same data.
    void expectFitted(char const* when)
    {
        PlotTestPage fresh({frame(page.frame().dataSet)});
        fresh.picture();
        vtkCamera& other = *fresh.field().stage().GetActiveCamera();
        EXPECT_NEAR(other.GetParallelScale(), camera().GetParallelScale(), 1e-9) << when;
        for (int axis = 0; axis < 3; ++axis) {
            EXPECT_NEAR(other.GetPosition()[axis], camera().GetPosition()[axis], 1e-6) << when;
            EXPECT_NEAR(other.GetFocalPoint()[axis], camera().GetFocalPoint()[axis], 1e-6) << when;
        }
    }

    std::shared_ptr<kernel::DataSet> set;
    PlotTestPage page;
};

} // namespace

TEST_P(ViewAfterChange, OneThatShowsTheWholeShowsTheCopiesAtOnce)
{
    double const reach = page.field().space().max(0);
    mirror();
    EXPECT_EQ(2U, page.field().zones().size());
    EXPECT_NEAR(-reach, page.field().space().min(0), 1e-9);
    expectFitted("after the operation");
    page.session().undo();
    page.picture();
    expectFitted("after undo");
}

TEST_P(ViewAfterChange, OneThatWasMovedStaysAtItsPlaceThroughOperationUndoAndRedo)
{
    moveView();
    auto const before = placesOnScreen();
    mirror();
    ASSERT_EQ(2U, page.field().zones().size());
    expectSamePlaces(before, "after the operation");
    page.session().undo();
    page.picture();
    ASSERT_EQ(1U, page.field().zones().size());
    expectSamePlaces(before, "after undo");
    page.session().redo();
    page.picture();
    ASSERT_EQ(2U, page.field().zones().size());
    expectSamePlaces(before, "after redo");
}

TEST_P(ViewAfterChange, OneThatWasMovedFollowsTheDataAgainAfterAFit)
{
    moveView();
    page.view().fitActiveFrame();
    mirror();
    expectFitted("after the operation");
}

TEST_P(ViewAfterChange, OtherVariablesOnTheAxesAreShownWhole)
{
    moveView();
    ASSERT_TRUE(page.session().perform(kernel::AssignVariable(page.frame().id, 'X', 2)));
    ASSERT_TRUE(page.session().perform(kernel::AssignVariable(page.frame().id, 'Y', 1)));
    page.picture();
    PlotTestPage fresh({frame(set)});
    ASSERT_TRUE(fresh.session().perform(kernel::AssignVariable(fresh.frame().id, 'X', 2)));
    ASSERT_TRUE(fresh.session().perform(kernel::AssignVariable(fresh.frame().id, 'Y', 1)));
    fresh.picture();
    vtkCamera* const other = fresh.field().stage().GetActiveCamera();
    EXPECT_NEAR(other->GetParallelScale(), camera().GetParallelScale(), 1e-9);
    for (int axis = 0; axis < 3; ++axis)
        EXPECT_NEAR(other->GetFocalPoint()[axis], camera().GetFocalPoint()[axis], 1e-6);
}

TEST_P(ViewAfterChange, OneThatWasMovedStaysWhenItsVariablesGetOtherNumbers)
{
    ASSERT_TRUE(page.session().perform(kernel::AssignVariable(page.frame().id, 'X', set->variableCount())));
    page.picture();
    moveView();
    double const scale = camera().GetParallelScale();
    double const distance = camera().GetDistance();
    ASSERT_TRUE(page.session().perform(kernel::DeleteVariables(*set, {1})));
    page.picture();
    EXPECT_EQ(scale, camera().GetParallelScale());
    EXPECT_EQ(distance, camera().GetDistance());
}

TEST_P(ViewAfterChange, OneThatWasMovedStaysWhenItsZoneIsHiddenForAWhile)
{
    moveView();
    auto const before = placesOnScreen();
    ASSERT_TRUE(page.session().perform(kernel::EnableZone(*set, 1, false)));
    page.picture();
    ASSERT_TRUE(page.session().perform(kernel::EnableZone(*set, 1, true)));
    page.picture();
    expectSamePlaces(before, "shown again");
}

TEST_P(ViewAfterChange, AfterAnEmptyPictureOtherDataAreShownWhole)
{
    mirror();
    moveView();
    ASSERT_TRUE(page.session().perform(kernel::EnableZone(*set, 1, false)));
    ASSERT_TRUE(page.session().perform(kernel::EnableZone(*set, 2, false)));
    page.picture();
    ASSERT_TRUE(page.session().perform(kernel::EnableZone(*set, 2, true)));
    page.picture();
    expectFitted("the other zone alone");
}

INSTANTIATE_TEST_SUITE_P(FieldPlots, ViewAfterChange, ::testing::Values(PlotType_Cartesian2D, PlotType_Cartesian3D),
                         [](auto const& plot) {
                             return plot.param == PlotType_Cartesian2D ? "InThePlane" : "InSpace";
                         });

TEST(ViewAfterChangeInThePlane, APartThatIsLookedAtKeepsItsPixels)
{
    PlotTestPage page({SampleData::frame("Sheet", SampleData::sheet(41, 21), PlotType_Cartesian2D)});
    page.picture();
    page.wheel(page.at(0.7, 0.5), 6);
    QImage const before = page.plot();
    ASSERT_TRUE(page.session().perform(kernel::MirrorZones(page.frame().id, {1}, 'X')));
    QImage const after = page.plot(0, "plane-part-after-mirror");
    EXPECT_EQ(2U, page.field().zones().size());
    EXPECT_LT(PlotTestPage::differingPixels(before, after), before.width() * before.height() / 100);
    page.view().fitActiveFrame();
    EXPECT_GT(PlotTestPage::differingPixels(before, page.plot()), before.width() * before.height() / 10);
}

TEST(ViewAfterChangeInSpace, OneThatWasTurnedKeepsItsDirectionAndShowsTheCopies)
{
    auto const set = SampleData::block(12, 9, 7);
    PlotTestPage page({SampleData::frame("Block", set, PlotType_Cartesian3D)});
    page.picture();
    page.drag(page.at(0.4, 0.5), page.at(0.6, 0.4));
    vtkCamera* const camera = page.field().stage().GetActiveCamera();
    Point direction{};
    camera->GetDirectionOfProjection(direction.data());
    ASSERT_TRUE(page.session().perform(kernel::MirrorZones(page.frame().id, {1}, 'X')));
    page.picture("space-turned-mirrored");
    for (int axis = 0; axis < 3; ++axis)
        EXPECT_NEAR(direction[static_cast<std::size_t>(axis)], camera->GetDirectionOfProjection()[axis], 1e-9);
    app::FieldView const& view = page.field();
    for (int corner = 0; corner < 8; ++corner) {
        view.stage().SetWorldPoint((corner & 1 ? 1 : -1) * view.space().sceneHalf(0),
                                   (corner & 2 ? 1 : -1) * view.space().sceneHalf(1),
                                   (corner & 4 ? 1 : -1) * view.space().sceneHalf(2), 1.0);
        view.stage().WorldToView();
        for (int axis = 0; axis < 2; ++axis)
            EXPECT_LT(std::abs(view.stage().GetViewPoint()[axis]), 1.0) << "corner " << corner;
    }
}

} // namespace veldraw::tests

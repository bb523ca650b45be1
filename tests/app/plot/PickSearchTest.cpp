#include "app/plot/PlotTheme.h"
#include "kernel/operations/EnableZone.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "tests/app/support/PlotTestPage.h"
#include "tests/app/support/SampleData.h"
#include "tests/support/WriteValue.h"

#include <QTest>
#include <vtkActorCollection.h>
#include <vtkCamera.h>

#include <gmock/gmock.h>
#include <limits>

namespace veldraw::tests {

using testing::ElementsAre;

namespace {

// A square of side 1 at a corner and a height, as an ordered zone of n x n points.
void addSquare(kernel::DataSet& set, double x, double y, double z, int n = 5)
{
    auto zone = std::make_shared<kernel::Zone>("square", ZoneType_Ordered, n, n, 1);
    std::vector<double> xs, ys, zs, values;
    for (int j = 0; j < n; ++j)
        for (int i = 0; i < n; ++i) {
            xs.push_back(x + i / (n - 1.0));
            ys.push_back(y + j / (n - 1.0));
            zs.push_back(z);
            values.push_back(i + j);
        }
    set.addZone(zone);
    for (auto const* const field : {&xs, &ys, &zs, &values})
        SampleData::addField(*zone, *field);
}

std::shared_ptr<kernel::DataSet> squareSet()
{
    auto set = std::make_shared<kernel::DataSet>("squares");
    for (char const* const name : {"X", "Y", "Z", "p"})
        set->addVariable(std::make_shared<kernel::Variable>(name));
    return set;
}

// Zone 1 on the left, zone 2 on the right of it with a gap, zone 3 under zone 1.
std::shared_ptr<kernel::DataSet> squares()
{
    auto const set = squareSet();
    addSquare(*set, 0.0, 0.0, 0.5);
    addSquare(*set, 1.5, 0.0, 0.5);
    addSquare(*set, 0.0, 0.0, 0.0);
    return set;
}

std::shared_ptr<kernel::Frame> frameOf(std::shared_ptr<kernel::DataSet> const& set, PlotType_e plotType)
{
    return SampleData::frame("Squares", set, plotType);
}

// Where a place of the data stands in the first frame's plot.
QPoint placeOf(PlotTestPage& page, double x, double y, double z)
{
    app::FieldView& view = page.field();
    bool const inSpace = page.frame().plotType == PlotType_Cartesian3D;
    view.stage().SetWorldPoint(view.space().toScene(0, x), view.space().toScene(1, y),
                               inSpace ? view.space().toScene(2, z) : 0.0, 1.0);
    view.stage().WorldToDisplay();
    double const* const shown = view.stage().GetDisplayPoint();
    double const ratio = page.view().devicePixelRatioF();
    return {static_cast<int>(shown[0] / ratio), page.view().height() - static_cast<int>(shown[1] / ratio)};
}

// The boxes around what is picked are the last thing in the stage.
vtkActor& marksOf(PlotTestPage& page)
{
    return *page.field().stage().GetActors()->GetLastActor();
}

/// A user who clicks on places of the data.
class PickTest : public ::testing::TestWithParam<PlotType_e>
{
protected:
    PickTest()
        : set(squares())
        , page({frameOf(set, GetParam()), frameOf(set, GetParam())}, {1100, 520})
    {
        page.picture();
    }

    QPoint placeOf(double x, double y, double z) { return tests::placeOf(page, x, y, z); }

    void click(QPoint const& place, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::mouseClick(page.view().windowHandle(), Qt::LeftButton, modifiers, place);
        PlotTestPage::settle();
    }

    std::vector<int> picked()
    {
        std::vector<int> numbers;
        for (kernel::Pick const& pick : page.session().picks()) {
            EXPECT_EQ(kernel::Pick::zoneType, pick.type);
            numbers.push_back(set->zoneNumber(pick.zone));
        }
        return numbers;
    }

    int markedPixels(std::size_t frame = 0)
    {
        return PlotTestPage::pixelsNear(page.plot(frame), app::PlotTheme::picked(), 20);
    }

    QPoint left() { return placeOf(0.6, 0.4, 0.5); }
    QPoint right() { return placeOf(2.1, 0.6, 0.5); }
    QPoint empty() { return placeOf(1.25, -0.6, 0.5); }

    std::shared_ptr<kernel::DataSet> set;
    PlotTestPage page;
};

} // namespace

// In the plane zone 3 lies over zone 1, since it is drawn after it; in space it lies below.
#define ON_THE_LEFT (GetParam() == PlotType_Cartesian3D ? 1 : 3)

TEST_P(PickTest, AClickPicksTheZoneUnderTheMouseAndTellsItOnce)
{
    int events = 0;
    auto const subscription = page.session().events().subscribe(
        [&](kernel::StateChangeEvent const& event) { events += event.kind == StateChange_PickList ? 1 : 0; });
    click(left());
    EXPECT_THAT(picked(), ElementsAre(ON_THE_LEFT));
    click(right());
    EXPECT_THAT(picked(), ElementsAre(2));
    EXPECT_EQ(2, events);
    page.session().events().unsubscribe(subscription);
}

TEST_P(PickTest, AClickOnTheBackgroundPicksNothing)
{
    click(right());
    click(empty());
    EXPECT_THAT(picked(), ElementsAre());
}

TEST_P(PickTest, ControlAddsAZoneAndTakesItOutAgain)
{
    click(left());
    click(right(), Qt::ControlModifier);
    EXPECT_THAT(picked(), ElementsAre(ON_THE_LEFT, 2));
    click(left(), Qt::ControlModifier);
    EXPECT_THAT(picked(), ElementsAre(2));
    click(empty(), Qt::ControlModifier);
    EXPECT_THAT(picked(), ElementsAre(2)) << "a slip beside the zones loses nothing";
}

TEST_P(PickTest, ADragMovesTheViewAndPicksNothing)
{
    QImage const before = page.plot();
    page.drag(right(), right() + QPoint(60, 20));
    EXPECT_THAT(picked(), ElementsAre());
    EXPECT_GT(PlotTestPage::differingPixels(before, page.plot()), 500);
}

TEST_P(PickTest, ADragThatComesBackIsNoClick)
{
    QPoint const place = right();
    QWindow* const window = page.view().windowHandle();
    QTest::mousePress(window, Qt::LeftButton, {}, place);
    for (QPoint const& offset : {QPoint(30, 0), QPoint(0, 0)}) {
        QMouseEvent move(QEvent::MouseMove, place + offset, window->mapToGlobal(place + offset), Qt::NoButton,
                         Qt::LeftButton, {});
        QApplication::sendEvent(window, &move);
    }
    QTest::mouseRelease(window, Qt::LeftButton, {}, place);
    EXPECT_THAT(picked(), ElementsAre());
}

TEST_P(PickTest, AClickLeavesTheViewAsItIs)
{
    click(empty());
    QImage const before = page.plot();
    QPoint const place = empty();
    QTest::mousePress(page.view().windowHandle(), Qt::LeftButton, {}, place);
    QTest::mouseRelease(page.view().windowHandle(), Qt::LeftButton, {}, place + QPoint(2, 1));
    EXPECT_EQ(0, PlotTestPage::differingPixels(before, page.plot()));
}

TEST_P(PickTest, PickedZonesAreMarkedInEveryFrameOfTheirData)
{
    EXPECT_EQ(0, markedPixels(0));
    click(right());
    page.picture(GetParam() == PlotType_Cartesian3D ? "picked-in-space" : "picked-in-plane");
    EXPECT_GT(markedPixels(0), 200);
    EXPECT_GT(markedPixels(1), 200);
    EXPECT_EQ(std::set<int>{2}, page.field(1).markedZones());
    click(empty());
    EXPECT_EQ(0, markedPixels(0));
    EXPECT_EQ(0, markedPixels(1));
}

TEST_P(PickTest, AllMarksAreOneThingForTheRenderer)
{
    auto const things = [this] { return page.field().stage().GetActors()->GetNumberOfItems(); };
    int const before = things();
    click(right());
    int const ofOne = markedPixels();
    EXPECT_EQ(before + 1, things());
    page.session().setPicks({{kernel::Pick::zoneType, set->zone(1)->id}, {kernel::Pick::zoneType, set->zone(2)->id}});
    EXPECT_GT(markedPixels(), ofOne + ofOne / 2) << "both are seen";
    EXPECT_EQ(before + 1, things());
    page.session().setPicks({});
    EXPECT_EQ(0, markedPixels());
    EXPECT_EQ(before, things());
}

TEST_P(PickTest, AMarkFollowsItsZone)
{
    click(right());
    page.session().perform(kernel::EnableZone(*set, 2, false));
    page.picture();
    EXPECT_TRUE(page.field().markedZones().empty()) << "what is not shown is not marked";
    page.session().undo();
    page.picture();
    EXPECT_EQ(std::set<int>{2}, page.field().markedZones());
}

TEST_P(PickTest, AMarkBuildsNoZoneAnew)
{
    vtkActor* const before = page.field().actors().at(0);
    click(right());
    page.picture();
    EXPECT_EQ(before, page.field().actors().at(0));
}

TEST_P(PickTest, NothingIsPickedWhileAnOperationRuns)
{
    sdk::AppLock const lock(sdk::AppLock::RecordAsUsual);
    click(right());
    EXPECT_THAT(picked(), ElementsAre());
}

INSTANTIATE_TEST_SUITE_P(FieldPlots, PickTest, ::testing::Values(PlotType_Cartesian2D, PlotType_Cartesian3D),
                         [](auto const& plot) {
                             return plot.param == PlotType_Cartesian2D ? "InThePlane" : "InSpace";
                         });

TEST(Pick, TheNearestZoneHidesTheOthersFromWhereverOneLooks)
{
    auto const set = squareSet();
    addSquare(*set, 0.0, 0.0, 1.0);
    addSquare(*set, 0.0, 0.0, 0.0);
    PlotTestPage page({frameOf(set, PlotType_Cartesian3D)});
    page.picture();
    vtkCamera* const camera = page.field().stage().GetActiveCamera();
    for (double const side : {1.0, -1.0}) {
        camera->SetViewUp(0.0, 1.0, 0.0);
        camera->SetFocalPoint(0.0, 0.0, 0.0);
        camera->SetPosition(0.0, 0.0, 3.0 * side);
        page.field().stage().ResetCameraClippingRange(-1, 1, -1, 1, -1, 1);
        page.click(page.at(0.4, 0.5));
        ASSERT_EQ(1U, page.session().picks().size());
        EXPECT_EQ(set->zone(side > 0.0 ? 1 : 2)->id, page.session().picks().front().zone);
    }
}

TEST(Pick, LinesAndPointsArePickedByAClickBesideThem)
{
    for (auto const& set : {SampleData::segments(200), SampleData::points(100)}) {
        PlotTestPage page({SampleData::frame("Thin", set, PlotType_Cartesian2D)});
        page.picture();
        int hits = 0;
        for (double x = 0.0; x < 1.0; x += 0.02)
            for (double y = 0.0; y < 1.0; y += 0.02)
                hits += page.field().zoneAt({x, y});
        EXPECT_GT(hits, 10);
        EXPECT_LT(hits, 1000) << "most places are not near a line or a point";
    }
}

TEST(Pick, CellsWithoutAPlaceArePickedNowhere)
{
    auto const set = squareSet();
    addSquare(*set, 0.0, 0.0, 0.0);
    writeValue(*set->field(1, 1)->group(), 12, std::numeric_limits<double>::quiet_NaN());
    PlotTestPage page({frameOf(set, PlotType_Cartesian2D)});
    page.picture();
    page.click(placeOf(page, 0.1, 0.1, 0.0));
    EXPECT_EQ(1U, page.session().picks().size());
    page.click(placeOf(page, 0.4, 0.4, 0.0));
    EXPECT_EQ(0U, page.session().picks().size());
}

TEST(Pick, TheBoxGoesRoundWhatIsSeenOfTheZone)
{
    // A disc far to the left of a sheet, one of whose points has no place.
    auto const set = SampleData::triangles(1);
    for (std::int64_t point = 0; point < set->zone(1)->pointCount(); ++point) {
        writeValue(*set->field(1, 1)->group(), point, -4.0 + 0.5 * static_cast<double>(point % 2));
        writeValue(*set->field(1, 2)->group(), point, 2.0 + 0.1 * static_cast<double>(point % 3));
    }
    writeValue(*set->field(1, 1)->group(), 7, std::numeric_limits<double>::quiet_NaN());
    set->addZone(SampleData::sheet(3, 3)->zone(1));
    PlotTestPage page({SampleData::frame("Apart", set, PlotType_Cartesian2D)});
    page.session().setPicks({{kernel::Pick::zoneType, set->zone(1)->id}});
    page.picture("box-round-what-is-seen");
    app::PlotSpace const& space = page.field().space();
    double const* const box = marksOf(page).GetBounds();
    EXPECT_NEAR(space.toValue(0, box[0]), -4.0, 0.1);
    EXPECT_NEAR(space.toValue(0, box[1]), -3.5, 0.1);
    EXPECT_NEAR(space.toValue(1, box[2]), 2.0, 0.1);
    EXPECT_NEAR(space.toValue(1, box[3]), 2.2, 0.1);
}

TEST(Pick, AZoneOfWhichNothingIsSeenHasNoBox)
{
    auto const set = squareSet();
    addSquare(*set, 0.0, 0.0, 0.0);
    addSquare(*set, 2.0, 0.0, 0.0);
    auto const hidden = kernel::Buffer::allocate(FieldDataType_Byte, 25);
    for (std::int64_t point = 0; point < 25; ++point)
        hidden->setValue(point, kernel::Blanking::hiddenPoint);
    set->zone(2)->blanking =
        std::make_shared<kernel::Blanking>(*set->zone(2), kernel::Blanking::Marks{hidden, nullptr});
    for (PlotType_e const plotType : {PlotType_Cartesian2D, PlotType_Cartesian3D}) {
        PlotTestPage page({frameOf(set, plotType)});
        page.session().setPicks({{kernel::Pick::zoneType, set->zone(2)->id}});
        page.picture();
        EXPECT_EQ(PlotTestPage::pixelsNear(page.plot(), app::PlotTheme::picked(), 20), 0);
    }
}

TEST(Pick, ALinePlotPicksNothing)
{
    PlotTestPage page({SampleData::waveFrame(SampleData::waves(40))});
    page.picture();
    for (double y = 0.1; y < 1.0; y += 0.05)
        page.click(page.at(0.5, y));
    EXPECT_TRUE(page.session().picks().empty());
}

} // namespace veldraw::tests

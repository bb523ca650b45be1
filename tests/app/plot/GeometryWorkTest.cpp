// Shapes that take long are worked out beside the event loop, while anything can happen to what they belong to.
#include "app/plot/GeometryWork.h"

#include "kernel/operations/AddFrame.h"
#include "kernel/operations/DeleteVariables.h"
#include "kernel/operations/EnableZone.h"
#include "kernel/operations/SetPlotType.h"
#include "kernel/operations/SetValue.h"
#include "tests/app/support/PlotTestPage.h"
#include "tests/app/support/SampleData.h"
#include "tests/support/ThreadFailure.h"
#include "tests/support/WriteValue.h"

#include <QTest>
#include <QTimer>

#include <atomic>
#include <gtest/gtest.h>

namespace veldraw::tests {

namespace {

constexpr int edge = 44; // bricks: too many to be looked through at once

/// Adds a zone whose shape fits into no memory, at the place of the first point of the others.
void addBoundlessZone(kernel::DataSet& set)
{
    constexpr std::int64_t points = std::int64_t{1} << 45;
    auto const one = SampleData::mixed()->zone(1);
    auto const zone = std::make_shared<kernel::Zone>("boundless", one->type, points, one->j, one->k);
    zone->connectivity = one->connectivity;
    set.addZone(zone);
}

/// A page whose only zone is large and not shown yet.
class DrawnAside : public ::testing::Test
{
protected:
    DrawnAside()
        : set(hidden(SampleData::bricks(edge)))
        , page({SampleData::frame("Solid", set, PlotType_Cartesian3D)})
    {
    }

    static SampleData::DataSetPtr hidden(SampleData::DataSetPtr dataSet)
    {
        dataSet->zone(1)->enabled = false;
        return dataSet;
    }

    // Follows what has happened without taking the time that a renderer takes.
    void follow() { page.view().frameView(page.frame().id); }

    // From here on the zone is being worked out.
    void start()
    {
        ASSERT_TRUE(page.session().perform(kernel::EnableZone(*set, 1, true)));
        follow();
        ASSERT_TRUE(page.view().isDrawing());
    }

    void expectAsIfMadeAnew()
    {
        QImage const shown = page.plot();
        EXPECT_FALSE(page.view().isDrawing());
        EXPECT_GT(PlotTestPage::colouredPixels(shown), 20000);
        PlotTestPage fresh({SampleData::frame("Solid", set, PlotType_Cartesian3D)});
        EXPECT_EQ(PlotTestPage::differingPixels(shown, fresh.plot()), 0);
    }

    QString const drawing = QStringLiteral("Drawing\u2026");
    SampleData::DataSetPtr set;
    PlotTestPage page;
};

} // namespace

TEST_F(DrawnAside, IsDrawnAsWellWhereNoThreadIsToBeHad)
{
    {
        ThreadFailure const none;
        start();
        EXPECT_GT(none.refused(), 0);
    }
    ASSERT_TRUE(QTest::qWaitFor([this] { return !page.view().isDrawing(); }, 60000));
    expectAsIfMadeAnew();
}

TEST_F(DrawnAside, SaysSoAndLetsTheWindowLiveUntilItIsThere)
{
    start();
    EXPECT_EQ(page.message(), drawing);
    EXPECT_TRUE(page.view().accessibleDescription().contains(drawing));
    EXPECT_TRUE(page.field().zones().empty());
    int turns = 0;
    QTimer ticking;
    QObject::connect(&ticking, &QTimer::timeout, [&turns] { ++turns; });
    ticking.start(0);
    ASSERT_TRUE(QTest::qWaitFor([this] { return !page.view().isDrawing(); }, 60000));
    EXPECT_GE(turns, 1);
    EXPECT_EQ(page.message(), QString()) << "shown without anybody's asking";
    ASSERT_EQ(page.field().zones().size(), 1U);
    EXPECT_EQ(page.field().zones().at(0)->cellCount(), 6 * edge * edge);
    expectAsIfMadeAnew();
}

TEST_F(DrawnAside, IsWaitedForByAPicture)
{
    start();
    EXPECT_GT(PlotTestPage::colouredPixels(page.view().grabImage()), 20000);
    EXPECT_EQ(page.message(), QString());
}

TEST_F(DrawnAside, IsKeptWhenColoursMeshOrExtentChange)
{
    start();
    page.picture();
    auto const shape = page.field().zones().at(0)->geometry();
    auto const cells = shape->drawing().GetPolys();
    ASSERT_TRUE(page.session().perform(kernel::AssignVariable(page.frame().id, 'C', 1)));
    ASSERT_TRUE(page.session().perform(kernel::SetPlotOption(page.frame().id, &kernel::Frame::showMesh, true)));
    follow();
    EXPECT_FALSE(page.view().isDrawing());
    EXPECT_EQ(page.field().zones().at(0)->geometry(), shape);
    auto const distant = SampleData::bricks(1);
    for (int axis = 0; axis < 3; ++axis)
        writeValue(*distant->zone(1)->fields[static_cast<std::size_t>(axis)].group(), 7, 4.0);
    set->addZone(distant->zone(1));
    ASSERT_TRUE(page.session().perform(kernel::EnableZone(*set, 2, false)));
    ASSERT_TRUE(page.session().perform(kernel::EnableZone(*set, 2, true)));
    follow();
    EXPECT_FALSE(page.view().isDrawing());
    EXPECT_NE(page.field().zones().at(0)->geometry(), shape);
    EXPECT_EQ(page.field().zones().at(0)->geometry()->drawing().GetPolys(), cells) << "moved, not looked for again";
}

TEST_F(DrawnAside, FollowsAnEditOfACoordinateMeanwhile)
{
    start();
    for (double const x : {-1.0, -2.0, 2.5}) {
        ASSERT_TRUE(page.session().perform(kernel::SetValue(*set, 1, 1, 0, x, false)));
        follow();
    }
    expectAsIfMadeAnew();
    ASSERT_TRUE(page.session().undo());
    follow();
    ASSERT_TRUE(page.session().redo());
    expectAsIfMadeAnew();
}

TEST_F(DrawnAside, FollowsAnEditOfTheContourMeanwhile)
{
    start();
    ASSERT_TRUE(page.session().perform(kernel::SetValue(*set, 1, 4, 0, 20.0, false)));
    follow();
    expectAsIfMadeAnew();
}

TEST_F(DrawnAside, FollowsAnotherContourAndPlotTypeMeanwhile)
{
    start();
    ASSERT_TRUE(page.session().perform(kernel::AssignVariable(page.frame().id, 'C', 1)));
    follow();
    ASSERT_TRUE(page.session().perform(kernel::AssignVariable(page.frame().id, 'C', 4)));
    ASSERT_TRUE(page.session().perform(kernel::SetPlotType(page.frame().id, PlotType_Cartesian2D)));
    follow();
    ASSERT_TRUE(page.session().perform(kernel::SetPlotType(page.frame().id, PlotType_Cartesian3D)));
    follow();
    expectAsIfMadeAnew();
}

TEST_F(DrawnAside, IsDroppedWhenTheZoneIsHidden)
{
    start();
    ASSERT_TRUE(page.session().perform(kernel::EnableZone(*set, 1, false)));
    follow();
    EXPECT_FALSE(page.view().isDrawing());
    QTest::qWait(200);
    EXPECT_EQ(page.message(), QStringLiteral("No zone is enabled."));
    EXPECT_EQ(page.view().frameView(page.frame().id), nullptr);
    ASSERT_TRUE(page.session().perform(kernel::EnableZone(*set, 1, true)));
    expectAsIfMadeAnew();
}

TEST_F(DrawnAside, IsDroppedWithItsFrame)
{
    start();
    auto const frame = page.frame().id;
    ASSERT_TRUE(page.session().perform(kernel::DeleteFrame(frame)));
    page.view().frameView(frame);
    QTest::qWait(100);
    EXPECT_EQ(page.view().frameView(frame), nullptr);
    ASSERT_TRUE(page.session().undo());
    expectAsIfMadeAnew();
}

TEST_F(DrawnAside, IsDroppedWithItsVariables)
{
    start();
    ASSERT_TRUE(page.session().perform(kernel::DeleteVariables(*set, {1})));
    follow();
    EXPECT_EQ(page.message(), QStringLiteral("No variable is assigned to the X axis."));
    ASSERT_TRUE(page.session().undo());
    expectAsIfMadeAnew();
}

TEST_F(DrawnAside, LeavesTheOtherZonesToBeSeen)
{
    auto const small = SampleData::bricks(2);
    auto const zone = small->zone(1);
    set->addZone(zone);
    page.view().scheduleRefresh();
    ASSERT_TRUE(page.session().perform(kernel::EnableZone(*set, 1, true)));
    follow();
    ASSERT_TRUE(page.view().isDrawing());
    expectAsIfMadeAnew();
    EXPECT_EQ(page.field().zones().size(), 2U);
}

TEST_F(DrawnAside, HoldsNoValuesWhenItIsDone)
{
    std::vector<std::weak_ptr<kernel::Buffer const>> buffers;
    for (int variable = 1; variable <= 4; ++variable)
        buffers.push_back(set->field(1, variable)->group()->buffer());
    start();
    page.picture();
    for (auto const& buffer : buffers)
        EXPECT_EQ(buffer.use_count(), 1);
}

TEST(DrawnAsideWithoutMemory, SaysSoAndKeepsNothingOfThePicture)
{
    auto const set = SampleData::bricks(4);
    addBoundlessZone(*set);
    set->zone(2)->enabled = false;
    PlotTestPage page({SampleData::frame("Solid", set, PlotType_Cartesian3D)});
    page.picture();
    std::weak_ptr<app::ZoneGeometry const> const shape = page.field().zones().at(0)->geometry();
    ASSERT_TRUE(page.session().perform(kernel::EnableZone(*set, 2, true)));
    page.view().frameView(page.frame().id);
    page.picture("without-memory");
    EXPECT_EQ(page.message().toStdString(), "This frame cannot be drawn: there is not enough memory for it.");
    EXPECT_TRUE(shape.expired()) << "the memory is what is missing";
    ASSERT_TRUE(page.session().undo());
    EXPECT_GT(PlotTestPage::colouredPixels(page.plot()), 20000);
    EXPECT_EQ(page.message(), QString());
}

TEST(DrawnAsideOnALeavingPage, IsGivenUp)
{
    std::weak_ptr<kernel::Buffer const> values;
    {
        auto const set = SampleData::bricks(edge);
        values = set->field(1, 1)->group()->buffer();
        PlotTestPage page({SampleData::frame("Solid", set, PlotType_Cartesian3D)});
        page.view().scheduleRefresh();
        ASSERT_TRUE(page.session().perform(kernel::SetValue(*set, 1, 1, 0, -3.0, false)));
        page.view().frameView(page.frame().id);
    }
    QTest::qWait(50);
    EXPECT_TRUE(values.expired());
}

TEST(GeometryWork, TellsOfTheLastJobOnly)
{
    auto const set = SampleData::bricks(edge);
    app::FieldLook look;
    look.axes = {1, 2, 3};
    look.inSpace = true;
    auto const requests = [&] {
        look.space = app::PlotSpace({0.0, 0.0, 0.0}, {1.0, 1.0, look.space.max(2) + 1.0}, false);
        app::GeometryWork::Requests all;
        all.push_back({set->zone(1)->id, app::ZoneSource(*set, 1, look), nullptr});
        return all;
    };
    std::atomic<int> told{0};
    app::GeometryWork work([&told] { ++told; });
    for (int n = 0; n < 4; ++n)
        work.start(requests());
    auto const last = app::geometryKeyOf(*set, 1, look);
    work.wait();
    ASSERT_TRUE(QTest::qWaitFor([&told] { return told > 0; }));
    auto const results = work.take();
    ASSERT_EQ(results.size(), 1U);
    EXPECT_TRUE(results.front().geometry->key() == last);
    EXPECT_FALSE(work.hasJob());
    EXPECT_EQ(told, 1);
    work.start(requests());
    work.drop();
    EXPECT_FALSE(work.hasJob());
    work.wait();
    EXPECT_TRUE(work.take().empty());
}

} // namespace veldraw::tests

// What a field plot shows of a transient data set.
#include "kernel/operations/EnableZone.h"
#include "kernel/operations/SetSolutionTime.h"
#include "tests/app/support/PlotTestPage.h"
#include "tests/app/support/SampleData.h"

#include <gtest/gtest.h>
#include <set>

namespace veldraw::tests {

namespace {

/// A sheet that is there always, and beside it one that goes to the right as time goes on, with values that grow.
std::shared_ptr<kernel::DataSet> movingSheet(int steps)
{
    auto const sheet = SampleData::sheet(5, 4);
    auto dataSet = std::make_shared<kernel::DataSet>("moving");
    for (auto const& variable : sheet->variables())
        dataSet->addVariable(variable);
    auto const add = [&](int strand, double time, double x, double y, double p) {
        auto zone = std::make_shared<kernel::Zone>("sheet", ZoneType_Ordered, 3, 3, 1);
        zone->strand = strand;
        zone->solutionTime = time;
        dataSet->addZone(zone);
        std::vector<double> values[3];
        for (int point = 0; point < 9; ++point) {
            values[0].push_back(x + point % 3);
            values[1].push_back(y + static_cast<double>(point / 3));
            values[2].push_back(p + point);
        }
        for (auto const& ofVariable : values)
            SampleData::addField(*zone, ofVariable);
    };
    add(kernel::staticStrand, 0.0, 0.0, 0.0, 0.0);
    for (int step = 0; step < steps; ++step)
        add(1, step, step, 4.0, 100.0 * step);
    return dataSet;
}

class TimeInAFrame : public testing::Test
{
protected:
    static constexpr int steps = 6;

    TimeInAFrame()
        : page({SampleData::frame("Time", dataSet, PlotType_Cartesian2D)})
    {
    }

    void go(double time)
    {
        ASSERT_TRUE(page.session().perform(kernel::SetSolutionTime(page.frame().id, time)));
        page.picture();
    }

    std::vector<int> drawn()
    {
        std::vector<int> zones;
        for (auto const& drawing : page.field().zones())
            zones.push_back(drawing->zoneNumber());
        return zones;
    }

    SampleData::DataSetPtr dataSet = movingSheet(steps);
    PlotTestPage page;
};

} // namespace

TEST_F(TimeInAFrame, ShowsStaticZonesAndThoseOfTheMoment)
{
    page.picture();
    EXPECT_EQ(drawn(), (std::vector<int>{1, 2}));
    for (int step = 0; step < steps; ++step) {
        go(step + 0.4);
        EXPECT_EQ(drawn(), (std::vector<int>{1, step + 2}));
    }
    go(-1.0);
    EXPECT_EQ(drawn(), (std::vector<int>{1}));
    EXPECT_EQ(page.message(), QString());
    page.session().undo();
    page.picture();
    EXPECT_EQ(drawn(), (std::vector<int>{1, steps + 1}));
}

TEST_F(TimeInAFrame, TheLegendIsOfWhatIsShown)
{
    go(2.0);
    EXPECT_EQ(page.field().legend().min(), 0.0);
    EXPECT_EQ(page.field().legend().max(), 208.0);
    go(5.0);
    EXPECT_EQ(page.field().legend().max(), 508.0);
}

TEST_F(TimeInAFrame, TheSpaceHasRoomForAllMoments)
{
    page.picture();
    app::PlotSpace const space = page.field().space();
    EXPECT_EQ(space.length(0), 7.0);
    for (int step = 1; step < steps; ++step) {
        go(step);
        EXPECT_TRUE(space == page.field().space()) << step;
    }
}

TEST_F(TimeInAFrame, APickFindsWhatIsThere)
{
    go(0.0);
    auto const find = [&](int zone) {
        for (int x = 1; x < 40; ++x)
            for (int y = 1; y < 40; ++y)
                if (page.field().zoneAt({x / 40.0, y / 40.0}) == zone)
                    return true;
        return false;
    };
    EXPECT_TRUE(find(2));
    EXPECT_FALSE(find(3));
    go(1.0);
    EXPECT_FALSE(find(2));
    EXPECT_TRUE(find(3));
    EXPECT_TRUE(find(1));
}

TEST_F(TimeInAFrame, SaysThatNothingHasBegun)
{
    ASSERT_TRUE(page.session().perform(kernel::EnableZone(*dataSet, 1, false)));
    go(-1.0);
    EXPECT_EQ(page.message(), QStringLiteral("No time strand has begun at the time -1."));
    go(0.0);
    EXPECT_EQ(page.message(), QString());
}

TEST(TimeInManyMoments, KeepsShapesOfOneMomentOnly)
{
    constexpr int steps = 1000;
    PlotTestPage page({SampleData::frame("Time", movingSheet(steps), PlotType_Cartesian2D)});
    std::vector<std::weak_ptr<app::ZoneGeometry const>> seen;
    for (int step = 0; step < steps; ++step) {
        ASSERT_TRUE(page.session().perform(kernel::SetSolutionTime(page.frame().id, step)));
        for (auto const& drawing : page.field().zones())
            seen.push_back(drawing->geometry());
    }
    page.field();
    std::set<app::ZoneGeometry const*> kept;
    for (auto const& geometry : seen)
        if (auto const alive = geometry.lock())
            kept.insert(alive.get());
    EXPECT_EQ(kept.size(), 2U);
    EXPECT_EQ(page.field().zones().size(), 2U);
}

} // namespace veldraw::tests

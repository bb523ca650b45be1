#include "dialogs/models/QListModel.h"
#include "dialogs/models/ZoneListModel.h"
#include "kernel/operations/EnableZone.h"
#include "kernel/operations/RenameZone.h"
#include "platform/vdsdkcommon/DataSetQueries.h"
#include "platform/vdsdkcommon/Names.h"
#include "platform/vdsdkuicommon/IdleDispatcher.h"
#include "tests/dialogs/models/ListLog.h"
#include "tests/dialogs/models/Rows.h"
#include "tests/dialogs/models/SampleSession.h"

#include <QAbstractItemModelTester>

#include <boost/make_shared.hpp>

#include <gtest/gtest.h>

namespace veldraw::tests {
namespace {

using namespace sdk::ui::dialogs::propertybindings::models;
using sdk::getEnabledZonesForFrame;
using sdk::ui::common::IdleDispatcher;

/// What happens between two idle moments.
class ZoneVarListModelTurnTest : public ::testing::Test
{
protected:
    void enable(int zone, bool isEnabled)
    {
        ASSERT_TRUE(session.perform(kernel::EnableZone(dataSet, zone, isEnabled)));
    }

    SampleSession sample{{"Wing", "Body", "Tail"}, {"X"}};
    kernel::Session& session = sample.session();
    kernel::DataSet& dataSet = sample.dataSet();
};

TEST_F(ZoneVarListModelTurnTest, AnswersAsTheKernelIsWheneverItIsAsked)
{
    ZoneListModel const zones(getEnabledZonesForFrame, false);
    ListLog log(zones);
    for (int zone = 1; zone <= 3; ++zone) {
        enable(zone, false);
        EXPECT_EQ(zones.indexOf(zone), -1);
        EXPECT_EQ(log.take(), "data");
        enable(zone, true);
        EXPECT_EQ(rows(zones), "1=1: Wing | 2=2: Body | 3=3: Tail");
        EXPECT_EQ(log.take(), "data");
    }
    IdleDispatcher::flush();
    EXPECT_EQ(log.take(), "");
}

TEST_F(ZoneVarListModelTurnTest, TellsAtIdleWhatHasChangedSinceItToldLast)
{
    ZoneListModel const zones(getEnabledZonesForFrame, false);
    ListLog log(zones);
    enable(1, false);
    EXPECT_EQ(log.take(), "data");
    enable(2, false);
    ListLog later(zones);
    session.perform(kernel::RenameZone(dataSet, 3, "Fin"));
    EXPECT_EQ(log.take() + later.take(), "");
    IdleDispatcher::flush();
    EXPECT_EQ(log.take(), "data");
    EXPECT_EQ(later.take(), "data");
    EXPECT_EQ(rows(zones), "3=3: Fin");
    enable(1, true);
    log.take();
    session.perform(kernel::RenameZone(dataSet, 3, "Tail"));
    EXPECT_EQ(log.take(), "item 1");
}

TEST_F(ZoneVarListModelTurnTest, TellsNothingWhenAllIsAgainAsItWas)
{
    ZoneListModel const zones(getEnabledZonesForFrame, false);
    enable(1, false);
    ListLog log(zones);
    enable(3, false);
    enable(3, true);
    IdleDispatcher::flush();
    EXPECT_EQ(log.take(), "");
}

TEST_F(ZoneVarListModelTurnTest, ShowsQtNoRowsThatHaveMovedBetweenTwoSignals)
{
    ZoneListModel const zones(getEnabledZonesForFrame, false);
    QListModel zoneRows(zones);
    QAbstractItemModelTester const tester(&zoneRows, QAbstractItemModelTester::FailureReportingMode::Fatal);
    enable(1, false);
    enable(2, false);
    EXPECT_EQ(rows(zoneRows), "2=2: Body | 3=3: Tail");
    EXPECT_EQ(zoneRows.flags(zoneRows.index(1)), Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    IdleDispatcher::flush();
    EXPECT_EQ(rows(zoneRows), "3=3: Tail");
    enable(1, true);
    enable(2, true);
    EXPECT_EQ(rows(zoneRows), "1=1: Wing | 3=3: Tail");
    EXPECT_EQ(zones.size(), 3);
    EXPECT_EQ(rows(zoneRows), "1=1: Wing | 2=2: Body | 3=3: Tail");
}

TEST_F(ZoneVarListModelTurnTest, RenamesTheRowThatItHasTold)
{
    ZoneListModel const zones(getEnabledZonesForFrame, true);
    enable(1, false);
    enable(2, false);
    EXPECT_TRUE(zones.setEditedItem("Hull", 0));
    EXPECT_EQ(dataSet.zone(2)->name, "Hull");
}

TEST_F(ZoneVarListModelTurnTest, LivesUntilItHasAnsweredWhoAsked)
{
    auto zones = boost::make_shared<ZoneListModel>(getEnabledZonesForFrame, false);
    enable(1, false);
    enable(2, false);
    ZoneListModel const& asked = *zones;
    boost::signals2::scoped_connection const connection = asked.connectDataChanged([&zones] { zones.reset(); });
    EXPECT_EQ(asked.size(), 1);
}

/// Counts how often its source and its names are read.
class CountingList : public ZoneVarListModelAbstract
{
public:
    struct Counts
    {
        int readings = 0;
        int names = 0;
    };

    explicit CountingList(Counts& counts)
        : ZoneVarListModelAbstract(
              [&counts](long long frame) {
                  ++counts.readings;
                  return getEnabledZonesForFrame(frame);
              },
              nullptr,
              [&counts](long long frame, int zone) {
                  ++counts.names;
                  return sdk::zoneNameForFrame(frame, zone);
              },
              IDOf(), StateChange_ZonesRenamed, Rename())
    {
    }
};

TEST(ZoneVarListModelTurnOfManyEvents, IsReadTwiceHoweverManyEventsComeInATurn)
{
    constexpr int zoneCount = 100000;
    SampleSession const sample(SampleSession::numberedNames(zoneCount), {"X"});
    CountingList::Counts counts;
    CountingList const zones(counts);
    ListLog log(zones);
    counts = {};
    for (int n = 0; n < 1000; ++n)
        ASSERT_TRUE(sample.session().perform(kernel::EnableZone(sample.dataSet(), n / 2 + 1, n % 2 == 1)));
    EXPECT_EQ(counts.readings, 1);
    EXPECT_LT(counts.names, zoneCount);
    EXPECT_EQ(log.take(), "data");
    IdleDispatcher::flush();
    EXPECT_EQ(counts.readings, 2);
    EXPECT_LE(counts.names, 2 * zoneCount);
    EXPECT_EQ(log.take(), "data");
    EXPECT_EQ(zones.size(), zoneCount);
}

} // namespace
} // namespace veldraw::tests

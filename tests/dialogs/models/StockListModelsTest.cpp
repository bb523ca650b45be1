#include "dialogs/models/EnabledVariablesListModel.h"
#include "dialogs/models/LineMapListModel.h"
#include "dialogs/models/NonSpatialVariablesListModel.h"
#include "dialogs/models/ZoneListModel.h"
#include "dialogs/models/ZoneListModelGroupableByStrand.h"
#include "kernel/operations/EnableZone.h"
#include "kernel/operations/LineMapOperation.h"
#include "kernel/operations/RenameZone.h"
#include "kernel/operations/SetPlotType.h"
#include "platform/vdsdkbase/VelUtilFieldMap.h"
#include "platform/vdsdkbase/VelUtilFrame.h"
#include "platform/vdsdkcommon/DataSetQueries.h"
#include "tests/dialogs/models/ListLog.h"
#include "tests/dialogs/models/Rows.h"
#include "tests/dialogs/models/SampleSession.h"
#include "tests/support/FakeStateChange.h"
#include "tests/support/KernelSpy.h"

#include <gtest/gtest.h>

namespace veldraw::tests {
namespace {

using namespace sdk::ui::dialogs::propertybindings::models;
using sdk::getEnabledVarsForFrame;
using sdk::getEnabledZonesForFrame;

// ---- variables that are no coordinates ----------------------------------------------------------------------------

class NonSpatialVariablesListModelTest : public ::testing::Test
{
protected:
    SampleSession sample{{"Wing"}, {"X", "Y", "Z", "P"}};
    kernel::Session& session = sample.session();

    void SetUp() override
    {
        ASSERT_TRUE(session.perform(kernel::SetPlotType(sample.frame()->id, PlotType_Cartesian2D)));
    }
};

TEST_F(NonSpatialVariablesListModelTest, LeavesTheCoordinatesOfThePlotOut)
{
    NonSpatialVariablesListModel const variables;
    EXPECT_EQ(rows(variables), "3=3: Z | 4=4: P");
    EXPECT_FALSE(variables.isEditable());
}

TEST_F(NonSpatialVariablesListModelTest, FollowsThePlotType)
{
    NonSpatialVariablesListModel const variables;
    ListLog log(variables);
    ASSERT_TRUE(session.perform(kernel::SetPlotType(sample.frame()->id, PlotType_XYLine)));
    EXPECT_EQ(rows(variables), "1=1: X | 2=2: Y | 3=3: Z | 4=4: P");
    EXPECT_EQ(log.take(), "data");
}

TEST_F(NonSpatialVariablesListModelTest, FollowsTheAxes)
{
    NonSpatialVariablesListModel const variables;
    ListLog log(variables);
    ASSERT_TRUE(session.perform(kernel::AssignVariable(sample.frame()->id, 'Y', 3)));
    EXPECT_EQ(rows(variables), "2=2: Y | 4=4: P");
    EXPECT_EQ(log.take(), "data");
    ASSERT_TRUE(session.perform(kernel::SetPlotType(sample.frame()->id, PlotType_Cartesian3D)));
    log.take();
    ASSERT_TRUE(session.perform(kernel::AssignVariable(sample.frame()->id, 'X', 4)));
    EXPECT_EQ(variables.indexOf(4), -1);
    EXPECT_EQ(log.take(), "data");
}

TEST_F(NonSpatialVariablesListModelTest, TellsARenameAsAChangeOfTheRow)
{
    NonSpatialVariablesListModel const variables;
    ListLog log(variables);
    ASSERT_TRUE(session.perform(kernel::RenameVariable(sample.dataSet(), 4, "Pressure")));
    ASSERT_TRUE(session.perform(kernel::RenameVariable(sample.dataSet(), 1, "Length")));
    EXPECT_EQ(log.take(), "item 1");
    EXPECT_EQ(rows(variables), "3=3: Z | 4=4: Pressure");
}

// ---- zones or strands ---------------------------------------------------------------------------------------------

class ZoneListModelGroupableByStrandTest : public ::testing::Test
{
protected:
    SampleSession sample{{"t0", "Wall", "t1", "Probe", "s0"}, {"X", "Y"}};
    kernel::Session& session = sample.session();

    void SetUp() override
    {
        kernel::DataSet& dataSet = sample.dataSet();
        dataSet.zone(1)->strand = 7;
        dataSet.zone(3)->strand = 7;
        dataSet.zone(5)->strand = 2;
    }
};

TEST_F(ZoneListModelGroupableByStrandTest, ShowsZonesAtFirst)
{
    ZoneListModelGroupableByStrand const zones;
    EXPECT_FALSE(zones.groupByTimeStrand()->value());
    EXPECT_EQ(rows(zones), "1=1: t0 | 2=2: Wall | 3=3: t1 | 4=4: Probe | 5=5: s0");
}

TEST_F(ZoneListModelGroupableByStrandTest, ShowsOneRowAStrandAndTellsTheSwitchOnce)
{
    ZoneListModelGroupableByStrand const zones;
    ListLog log(zones);
    zones.groupByTimeStrand()->setValue(true);
    EXPECT_EQ(log.take(), "data");
    EXPECT_EQ(rows(zones), "1=1: t0 (strand 7) | 2=2: Wall | 3=3: Probe | 4=4: s0 (strand 2)");
    zones.groupByTimeStrand()->setValue(true);
    EXPECT_EQ(log.take(), "");
    zones.groupByTimeStrand()->setValue(false);
    EXPECT_EQ(log.take(), "data");
    EXPECT_EQ(zones.size(), 5);
}

TEST_F(ZoneListModelGroupableByStrandTest, GivesNumbersThatTheKernelTurnsIntoTheNamedZones)
{
    ZoneListModelGroupableByStrand const zones;
    zones.groupByTimeStrand()->setValue(true);
    std::vector<toolbox::Set::Members> members;
    for (int row = 0; row < zones.size(); ++row) {
        Set_s* handle = nullptr;
        ASSERT_TRUE(VelUtilFieldMapGetZones(zones.get(row), &handle));
        members.push_back(toolbox::Set::Take(handle).members());
    }
    EXPECT_EQ(members, (std::vector<toolbox::Set::Members>{{1, 3}, {2}, {4}, {5}}));
}

TEST_F(ZoneListModelGroupableByStrandTest, TakesZeroForAStrandAndNumbersBeyondTheRangeForNone)
{
    kernel::DataSet& dataSet = sample.dataSet();
    dataSet.zone(1)->strand = dataSet.zone(3)->strand = 0;
    dataSet.zone(2)->strand = dataSet.zone(4)->strand = -1;
    dataSet.zone(5)->strand = 2147483647;
    ZoneListModelGroupableByStrand const zones;
    zones.groupByTimeStrand()->setValue(true);
    EXPECT_EQ(rows(zones), "1=1: t0 (strand 0) | 2=2: Wall | 3=3: Probe | 4=4: s0");
    Set_s* handle = nullptr;
    ASSERT_TRUE(VelUtilFieldMapGetZones(1, &handle));
    EXPECT_EQ(toolbox::Set::Take(handle).members(), (toolbox::Set::Members{1, 3}));
}

// Zero is also what a question answers that has failed.
TEST_F(ZoneListModelGroupableByStrandTest, ShowsTheStrandsThoughAQuestionFails)
{
    ZoneListModelGroupableByStrand const zones;
    KernelSpy spy;
    zones.groupByTimeStrand()->setValue(true);
    int const questions = spy.count();
    EXPECT_GE(questions, 10);
    for (int question = 1; question <= questions; ++question) {
        zones.groupByTimeStrand()->setValue(false);
        spy.reset();
        spy.failCall(question);
        zones.groupByTimeStrand()->setValue(true);
        EXPECT_EQ(rows(zones), "1=1: t0 (strand 7) | 2=2: Wall | 3=3: Probe | 4=4: s0 (strand 2)")
            << spy.calls().at(static_cast<std::size_t>(question) - 1);
    }
}

TEST_F(ZoneListModelGroupableByStrandTest, NamesAStrandAfterItsLowestEnabledZone)
{
    ZoneListModelGroupableByStrand const zones;
    zones.groupByTimeStrand()->setValue(true);
    ASSERT_TRUE(session.perform(kernel::EnableZone(sample.dataSet(), 1, false)));
    EXPECT_EQ(rows(zones), "1=1: t1 (strand 7) | 2=2: Wall | 3=3: Probe | 4=4: s0 (strand 2)");
    ASSERT_TRUE(session.perform(kernel::EnableZone(sample.dataSet(), 3, false)));
    EXPECT_EQ(rows(zones), "2=2: Wall | 3=3: Probe | 4=4: s0 (strand 2)");
    ASSERT_TRUE(session.perform(kernel::EnableZone(sample.dataSet(), 1, true)));
    EXPECT_EQ(rows(zones), "1=1: t0 (strand 7) | 2=2: Wall | 3=3: Probe | 4=4: s0 (strand 2)");
    ASSERT_TRUE(session.perform(kernel::EnableZone(sample.dataSet(), 5, false)));
    EXPECT_EQ(rows(zones), "1=1: t0 (strand 7) | 2=2: Wall | 3=3: Probe");
}

TEST_F(ZoneListModelGroupableByStrandTest, FollowsTheKernelInBothStates)
{
    ZoneListModelGroupableByStrand const zones;
    zones.groupByTimeStrand()->setValue(true);
    ListLog log(zones);
    ASSERT_TRUE(session.perform(kernel::RenameZone(sample.dataSet(), 1, "start")));
    EXPECT_EQ(log.take(), "item 0");
    EXPECT_EQ(zones.getStr(0), "1: start (strand 7)");
    ASSERT_TRUE(session.perform(kernel::EnableZone(sample.dataSet(), 4, false)));
    EXPECT_EQ(log.take(), "data");
    EXPECT_EQ(rows(zones), "1=1: start (strand 7) | 2=2: Wall | 4=4: s0 (strand 2)");
    zones.groupByTimeStrand()->setValue(false);
    log.take();
    ASSERT_TRUE(session.undo());
    EXPECT_EQ(log.take(), "data");
    EXPECT_EQ(zones.size(), 5);
}

TEST_F(ZoneListModelGroupableByStrandTest, KeepsThePropertyUsableAfterItsOwnEnd)
{
    boost::shared_ptr<PropertyAbstract<bool>> grouping;
    {
        ZoneListModelGroupableByStrand const zones;
        grouping = zones.groupByTimeStrand();
    }
    grouping->setValue(true);
    EXPECT_TRUE(grouping->value());
}

TEST_F(ZoneListModelGroupableByStrandTest, GroupsAHundredThousandZonesInOneWalk)
{
    session.setFrameDataSet(sample.frame()->id,
                            SampleSession::makeDataSet(SampleSession::numberedNames(100000), {"X"}));
    ZoneListModelGroupableByStrand const zones;
    zones.groupByTimeStrand()->setValue(true);
    EXPECT_EQ(zones.size(), 100000);
    EXPECT_EQ(zones.getStr(99999), "100000: 100000");
}

// ---- line maps ----------------------------------------------------------------------------------------------------

class LineMapListModelTest : public ::testing::Test
{
protected:
    SampleSession sample{{"Wing"}, {"X", "Y", "P"}};
    kernel::Session& session = sample.session();
    kernel::UniqueId const frame = sample.frame()->id;

    void SetUp() override
    {
        kernel::NumberSet all;
        for (std::size_t map = 1; map <= sample.frame()->lineMaps.size(); ++map)
            all.insert(static_cast<int>(map));
        session.perform(kernel::DeleteLineMaps(frame, all));
        ASSERT_TRUE(session.perform(kernel::CreateLineMap(frame)));
        ASSERT_TRUE(session.perform(kernel::CreateLineMap(frame)));
        ASSERT_TRUE(rename(1, "lift"));
        ASSERT_TRUE(rename(2, "drag"));
    }

    bool rename(int map, std::string const& name)
    {
        return session.perform(
            kernel::ChangeLineMaps(frame, {map}, [&name](kernel::LineMap& lineMap) { lineMap.name = name; }));
    }
};

TEST_F(LineMapListModelTest, ListsTheLineMapsOfTheActiveFrame)
{
    EXPECT_EQ(rows(LineMapListModel()), "1=1: lift | 2=2: drag");
}

TEST_F(LineMapListModelTest, FollowsCreationDeletionAndRenaming)
{
    LineMapListModel const lineMaps;
    ListLog log(lineMaps);
    ASSERT_TRUE(rename(2, "moment"));
    EXPECT_EQ(log.take(), "item 1");
    ASSERT_TRUE(session.perform(kernel::DeleteLineMaps(frame, {1})));
    EXPECT_EQ(rows(lineMaps), "1=1: moment");
    EXPECT_EQ(log.take(), "data");
    ASSERT_TRUE(session.undo());
    EXPECT_EQ(rows(lineMaps), "1=1: lift | 2=2: moment");
    EXPECT_EQ(log.take(), "data");
}

TEST_F(LineMapListModelTest, FollowsANewDataSetOfTheFrame)
{
    LineMapListModel const lineMaps;
    ListLog log(lineMaps);
    ASSERT_TRUE(session.setFrameDataSet(frame, SampleSession::makeDataSet({"Tail"}, {"X", "Y"})));
    EXPECT_EQ(log.take(), "data");
    EXPECT_EQ(rows(lineMaps), rows(LineMapListModel()));
    EXPECT_EQ(lineMaps.size(), static_cast<int>(sample.frame()->lineMaps.size()));
}

TEST_F(LineMapListModelTest, IsEmptyInAFrameWithoutLineMaps)
{
    LineMapListModel const lineMaps;
    session.createFrame("Frame 002", kernel::Rectangle{0.0, 0.0, 2.0, 2.0});
    EXPECT_EQ(lineMaps.size(), 0);
    ASSERT_TRUE(session.activateFrame(frame));
    EXPECT_EQ(lineMaps.size(), 2);
    session.removeAllPages();
    EXPECT_EQ(lineMaps.size(), 0);
}

TEST_F(LineMapListModelTest, SaysNothingWhenNothingItShowsHasChanged)
{
    LineMapListModel const lineMaps;
    ListLog log(lineMaps);
    for (int kind = 0; kind <= 51; ++kind)
        FakeStateChange(kind, {"LineMap"}).send();
    EXPECT_EQ(log.take(), "");
}

// ---- frame loops --------------------------------------------------------------------------------------------------

TEST(StockListModels, BelongToTheActiveFrameWhenAnEventComesInTheMiddleOfAFrameLoop)
{
    SampleSession const sample({"Wing"}, {"X", "P"});
    kernel::Session& session = sample.session();
    auto const other = session.createFrame("Frame 002", kernel::Rectangle{0.0, 0.0, 2.0, 2.0});
    ASSERT_TRUE(session.setFrameDataSet(other->id, SampleSession::makeDataSet({"A", "B"}, {"T"})));
    ASSERT_TRUE(session.activateFrame(sample.frame()->id));
    ZoneListModel const zones(getEnabledZonesForFrame, false);
    EnabledVariablesListModel const variables(getEnabledVarsForFrame, false);
    ZoneListModelGroupableByStrand const strands;
    strands.groupByTimeStrand()->setValue(true);
    LineMapListModel const lineMaps;
    auto const all = [&] {
        return rows(zones) + "; " + rows(variables) + "; " + rows(strands) + "; " + rows(lineMaps);
    };
    std::string const before = all();
    ListLog zoneLog(zones), variableLog(variables), strandLog(strands), lineMapLog(lineMaps);

    ASSERT_TRUE(VelUtilFrameLightweightLoopStart());
    while (VelUtilFrameGetUniqueID() != other->id)
        ASSERT_TRUE(VelUtilFrameLightweightLoopNext());
    session.perform(kernel::CreateLineMap(other->id));
    session.perform(kernel::RenameZone(*other->dataSet, 1, "C"));
    session.perform(kernel::EnableVariable(*other->dataSet, 1, false));
    EXPECT_EQ(all(), before);
    EXPECT_EQ(VelUtilFrameGetUniqueID(), other->id) << "the loop goes on where it stood";
    session.perform(kernel::RenameZone(sample.dataSet(), 1, "Flap"));
    VelUtilFrameLightweightLoopEnd();

    EXPECT_EQ(rows(zones), "1=1: Flap");
    EXPECT_EQ(rows(strands), "1=1: Flap");
    EXPECT_EQ(zoneLog.take() + "; " + strandLog.take(), "item 0; item 0");
    EXPECT_EQ(variableLog.take() + lineMapLog.take(), "");
}

} // namespace
} // namespace veldraw::tests

#include "platform/vdtoolbox/AuxData.h"

#include "host/KernelBridge.h"
#include "kernel/operations/AddFrame.h"
#include "kernel/operations/DeleteVariables.h"
#include "kernel/operations/DuplicateZones.h"
#include "kernel/operations/LineMapOperation.h"
#include "platform/vdsdkcommon/StateChangeEventObservable.h"
#include "tests/host/SampleSession.h"

#include <gmock/gmock.h>

namespace veldraw::tests {

using sdk::integration::StateChangeEventObservable;
using ::testing::Contains;
using ::testing::ElementsAre;
using toolbox::AuxData;

namespace {

constexpr AuxDataLocation_e everyLocation[] = {AuxDataLocation_Zone,  AuxDataLocation_DataSet, AuxDataLocation_Frame,
                                               AuxDataLocation_Var,   AuxDataLocation_LineMap, AuxDataLocation_Page,
                                               AuxDataLocation_Layout};

} // namespace

class AuxiliaryTexts : public SampleSession
{
protected:
    void SetUp() override
    {
        SampleSession::SetUp();
        host::KernelBridge::install();
        m_dataSet = makeDataSet({"X", "Y"});
        addZone(*m_dataSet, "zone", 3);
        addZone(*m_dataSet, "other", 3);
        m_frame = show(m_dataSet, PlotType_XYLine);
        session().history().clear();
        m_connection = StateChangeEventObservable::getInstance().connectStateChanged(
            [this](toolbox::StateChangeEventInterface const& event) { m_kinds.push_back(event.kind()); });
    }

    std::shared_ptr<kernel::DataSet> m_dataSet;
    std::shared_ptr<kernel::Frame> m_frame;
    boost::signals2::scoped_connection m_connection;
    std::vector<int> m_kinds;
};

TEST_F(AuxiliaryTexts, AreReadByNumberInOrderOfTheirNames)
{
    AuxData const zone(AuxDataLocation_Zone, 2);
    EXPECT_EQ(zone.size(), 0);
    ASSERT_TRUE(zone.setText("Pressure", "1 bar", true));
    ASSERT_TRUE(zone.setText("Author", "somebody", true));
    ASSERT_EQ(zone.size(), 2);
    EXPECT_EQ(zone.name(1), "Author");
    EXPECT_EQ(zone.value(1), "somebody");
    EXPECT_EQ(zone.name(2), "Pressure");
    EXPECT_EQ(zone.value(2), "1 bar");
    EXPECT_EQ(AuxData(AuxDataLocation_Zone, 1).size(), 0);
}

TEST_F(AuxiliaryTexts, AreEmptyForNumbersThatDoNotExist)
{
    AuxData const zone(AuxDataLocation_Zone, 1);
    zone.setText("Name", "value", true);
    for (int n : {-1, 0, 2}) {
        EXPECT_EQ(zone.name(n), "");
        EXPECT_EQ(zone.value(n), "");
        EXPECT_FALSE(zone.boolValue(n));
    }
}

TEST_F(AuxiliaryTexts, AreFoundByNameInAnyCase)
{
    AuxData const frame(AuxDataLocation_Frame, 1);
    EXPECT_EQ(frame.indexOf("IsResult"), 0);
    ASSERT_TRUE(frame.set("IsResult", true, true));
    EXPECT_EQ(frame.indexOf("ISRESULT"), 1);
}

TEST_F(AuxiliaryTexts, HoldFlags)
{
    AuxData const frame(AuxDataLocation_Frame, 1);
    frame.set("Flag", true, true);
    EXPECT_EQ(frame.value(1), "TRUE");
    EXPECT_TRUE(frame.boolValue(1));
    frame.set("Flag", false, true);
    EXPECT_EQ(frame.value(1), "FALSE");
    EXPECT_FALSE(frame.boolValue(1));
    for (char const* yes : {"true", "Yes", "ON", "1"}) {
        frame.setText("Flag", yes, true);
        EXPECT_TRUE(frame.boolValue(1)) << yes;
    }
    for (char const* no : {"", "0", "no", "2", "truely"}) {
        frame.setText("Flag", no, true);
        EXPECT_FALSE(frame.boolValue(1)) << no;
    }
}

TEST_F(AuxiliaryTexts, BelongToEachKindOfOwner)
{
    for (AuxDataLocation_e location : everyLocation) {
        AuxData const owner(location, 1);
        EXPECT_TRUE(owner.isValid()) << location;
        EXPECT_EQ(owner.size(), 0) << location;
        EXPECT_TRUE(owner.setText("Place", std::to_string(location), true)) << location;
    }
    for (AuxDataLocation_e location : everyLocation)
        EXPECT_EQ(AuxData(location, 1).value(1), std::to_string(location));
}

TEST_F(AuxiliaryTexts, HaveNoOwnerWhereThereIsNone)
{
    for (AuxDataLocation_e location : {AuxDataLocation_Zone, AuxDataLocation_Var, AuxDataLocation_LineMap}) {
        for (int object : {-1, 0, 9}) {
            AuxData const owner(location, object);
            EXPECT_FALSE(owner.isValid());
            EXPECT_EQ(owner.size(), 0);
            EXPECT_EQ(owner.indexOf("Name"), 0);
            EXPECT_FALSE(owner.set("Name", true, true));
        }
    }
    session().removeAllPages();
    for (AuxDataLocation_e location : {AuxDataLocation_DataSet, AuxDataLocation_Frame, AuxDataLocation_Page})
        EXPECT_FALSE(AuxData(location, 1).isValid());
    EXPECT_TRUE(AuxData(AuxDataLocation_Layout, 1).isValid()) << "of no pages";
}

TEST_F(AuxiliaryTexts, OfALayoutBeginAnewWithItsPages)
{
    AuxData const layout(AuxDataLocation_Layout, 1);
    ASSERT_TRUE(layout.setText("Name", "x", true));
    session().createFrame("another", {0, 0, 1, 1});
    EXPECT_EQ(layout.size(), 1);
    m_kinds.clear();
    session().openPage({});
    EXPECT_EQ(layout.size(), 0);
    EXPECT_THAT(m_kinds,
                ElementsAre(StateChange_PageReplaced, StateChange_NewActiveFrame, StateChange_AuxDataOwnersReplaced));
    ASSERT_TRUE(layout.setText("Name", "y", true));
    session().removeAllPages();
    EXPECT_EQ(layout.size(), 0);
}

TEST_F(AuxiliaryTexts, AreDeletedOfEachKindOfOwner)
{
    for (AuxDataLocation_e location : everyLocation) {
        SCOPED_TRACE(location);
        AuxData const owner(location, 1);
        ASSERT_TRUE(owner.setText("Kept", "1", true));
        ASSERT_TRUE(owner.setText("Name", "2", false));
        m_kinds.clear();
        EXPECT_TRUE(owner.remove("NAME"));
        EXPECT_EQ(owner.size(), 1);
        EXPECT_EQ(owner.name(1), "Kept");
        ASSERT_TRUE(session().undo());
        EXPECT_EQ(owner.value(2), "2");
        ASSERT_TRUE(session().redo());
        EXPECT_EQ(owner.size(), 1);
        EXPECT_THAT(m_kinds, ElementsAre(42, 41, 24, 42, 24));
    }
}

TEST_F(AuxiliaryTexts, AreNotDeletedWhereThereAreNone)
{
    AuxData const zone(AuxDataLocation_Zone, 1);
    EXPECT_FALSE(zone.remove("Name"));
    EXPECT_EQ(session().lastError(), "There is no auxiliary data of this name.");
    EXPECT_FALSE(AuxData(AuxDataLocation_Zone, 9).remove("Name"));
    EXPECT_EQ(session().lastError(), "There is nothing that could have the auxiliary data.");
    zone.set("Name", true, true);
    bool wasRefused = false;
    session().runOperation("long work", [&](kernel::Progress&) { wasRefused = !zone.remove("Name"); });
    EXPECT_TRUE(wasRefused);
    EXPECT_EQ(zone.size(), 1);
}

TEST_F(AuxiliaryTexts, HaveNoZeroBytes)
{
    AuxData const zone(AuxDataLocation_Zone, 1);
    EXPECT_FALSE(zone.setText("Name", std::string("a\0b", 3), true));
    EXPECT_EQ(session().lastError(), "The value must not have zero bytes.");
    EXPECT_EQ(zone.size(), 0);
}

TEST_F(AuxiliaryTexts, MakeADataSetDifferFromItsFileWhereTheyArePartOfIt)
{
    for (AuxDataLocation_e location : everyLocation) {
        SCOPED_TRACE(location);
        bool const isSaved =
            location == AuxDataLocation_Zone || location == AuxDataLocation_DataSet || location == AuxDataLocation_Var;
        session().history().setClean();
        ASSERT_TRUE(AuxData(location, 1).setText("Name", "x", true));
        EXPECT_EQ(session().history().isClean(m_dataSet->id()), !isSaved);
        session().history().setClean();
        ASSERT_TRUE(AuxData(location, 1).remove("Name"));
        EXPECT_EQ(session().history().isClean(m_dataSet->id()), !isSaved);
    }
}

TEST_F(AuxiliaryTexts, StayWithTheirOwnersWhenTheseAreRenumberedAndAreToldThen)
{
    AuxData const second(AuxDataLocation_Var, 2);
    ASSERT_TRUE(second.setText("Unit", "m", true));
    AuxData const first(AuxDataLocation_Var, 1);
    m_kinds.clear();
    ASSERT_TRUE(session().perform(kernel::DeleteVariables(*m_dataSet, {1})));
    EXPECT_EQ(first.value(1), "m");
    EXPECT_FALSE(second.isValid());
    EXPECT_EQ(m_kinds.back(), StateChange_AuxDataOwnersReplaced);
    m_kinds.clear();
    ASSERT_TRUE(session().undo());
    EXPECT_EQ(second.value(1), "m");
    EXPECT_EQ(first.size(), 0);
    EXPECT_THAT(m_kinds, Contains(51));
}

TEST_F(AuxiliaryTexts, OfACopiedZoneAreItsOwn)
{
    AuxData const source(AuxDataLocation_Zone, 1);
    ASSERT_TRUE(source.setText("Part", "hull", false));
    ASSERT_TRUE(session().perform(kernel::DuplicateZones(*m_dataSet, {1})));
    AuxData const copy(AuxDataLocation_Zone, 3);
    EXPECT_EQ(copy.value(1), "hull");
    ASSERT_TRUE(copy.setText("Part", "keel", true));
    EXPECT_EQ(source.value(1), "hull");
    EXPECT_EQ(AuxData(AuxDataLocation_Zone, 2).size(), 0);
    m_kinds.clear();
    ASSERT_TRUE(session().undo());
    ASSERT_TRUE(session().undo());
    EXPECT_FALSE(copy.isValid());
    EXPECT_THAT(m_kinds, ElementsAre(43, 24, 5, 51, 24));
    ASSERT_TRUE(session().redo());
    EXPECT_EQ(copy.value(1), "hull");
}

TEST_F(AuxiliaryTexts, OfAFrameGoAndComeWithIt)
{
    AuxData const frame(AuxDataLocation_Frame, 1);
    AuxData const map(AuxDataLocation_LineMap, 1);
    ASSERT_TRUE(frame.setText("Name", "of the frame", true));
    ASSERT_TRUE(map.setText("Name", "of the map", true));
    ASSERT_TRUE(session().perform(kernel::DeleteFrame(m_frame->id)));
    EXPECT_FALSE(frame.isValid());
    EXPECT_FALSE(map.isValid());
    ASSERT_TRUE(session().undo());
    EXPECT_EQ(frame.value(1), "of the frame");
    EXPECT_EQ(map.value(1), "of the map");
}

TEST_F(AuxiliaryTexts, AreNoneOfANewFrameOrLineMap)
{
    ASSERT_TRUE(AuxData(AuxDataLocation_Frame, 1).set("Flag", true, true));
    ASSERT_TRUE(AuxData(AuxDataLocation_LineMap, 1).set("Flag", true, true));
    int const maps = static_cast<int>(m_frame->lineMaps.size());
    ASSERT_TRUE(session().perform(kernel::CreateLineMap(m_frame->id)));
    EXPECT_EQ(AuxData(AuxDataLocation_LineMap, maps + 1).size(), 0);
    session().createFrame("second", {0, 0, 1, 1});
    EXPECT_EQ(AuxData(AuxDataLocation_Frame, 1).size(), 0);
}

TEST_F(AuxiliaryTexts, FollowTheActiveFrame)
{
    AuxData const frame(AuxDataLocation_Frame, 1);
    frame.set("Flag", true, true);
    session().createFrame("second", {0, 0, 1, 1});
    EXPECT_EQ(frame.size(), 0);
    session().activateFrame(m_frame->id);
    EXPECT_EQ(frame.size(), 1);
}

TEST_F(AuxiliaryTexts, AreToldWhenTheyChange)
{
    AuxData const zone(AuxDataLocation_Zone, 1);
    zone.setText("Name", "first", true);
    zone.setText("Name", "second", true);
    EXPECT_THAT(m_kinds, ElementsAre(StateChange_AuxDataAdded, StateChange_AuxDataAltered));
    m_kinds.clear();
    EXPECT_FALSE(zone.setText("not a name", "x", true));
    EXPECT_TRUE(m_kinds.empty());
    EXPECT_EQ(session().history().undoName(), "Auxiliary Data");
}

TEST_F(AuxiliaryTexts, AreNoStepWhenTheyAreThereAlready)
{
    AuxData const zone(AuxDataLocation_Zone, 1);
    ASSERT_TRUE(zone.setText("Name", "first", true));
    session().history().clear();
    m_kinds.clear();
    EXPECT_TRUE(zone.setText("Name", "first", true));
    EXPECT_FALSE(session().history().canUndo());
    EXPECT_TRUE(m_kinds.empty());
    EXPECT_TRUE(zone.setText("Name", "first", false));
    EXPECT_TRUE(session().history().canUndo());
}

TEST_F(AuxiliaryTexts, AreRefusedWhileAnOperationRuns)
{
    AuxData const zone(AuxDataLocation_Zone, 1);
    bool wasRefused = false;
    session().runOperation("long work", [&](kernel::Progress&) { wasRefused = !zone.set("Flag", true, true); });
    EXPECT_TRUE(wasRefused);
    EXPECT_EQ(session().lastError(), "Another operation is running.");
    EXPECT_EQ(zone.size(), 0);
    EXPECT_FALSE(session().history().canUndo());
    EXPECT_TRUE(m_kinds.empty());
    EXPECT_TRUE(zone.set("Flag", true, true)) << "afterwards";
}

TEST_F(AuxiliaryTexts, SayWhyTheyAreRefused)
{
    EXPECT_FALSE(AuxData(AuxDataLocation_Zone, 9).setText("Name", "x", true));
    EXPECT_EQ(session().lastError(), "There is nothing that could have the auxiliary data.");
    EXPECT_FALSE(AuxData(AuxDataLocation_Zone, 1).setText("not a name", "x", true));
    EXPECT_EQ(session().lastError(), "The name must begin with a letter; letters, digits, \"_\" and \".\" may follow.");
}

TEST_F(AuxiliaryTexts, CanBeTakenBack)
{
    AuxData const zone(AuxDataLocation_Zone, 1);
    zone.setText("Name", "first", true);
    zone.setText("Name", "second", true);
    m_kinds.clear();
    ASSERT_TRUE(session().undo());
    EXPECT_EQ(zone.value(1), "first");
    ASSERT_TRUE(session().undo());
    EXPECT_EQ(zone.size(), 0);
    EXPECT_THAT(m_kinds, ElementsAre(43, 24, 42, 24));
    ASSERT_TRUE(session().redo());
    ASSERT_TRUE(session().redo());
    EXPECT_EQ(zone.value(1), "second");
}

} // namespace veldraw::tests

#include "platform/vdsdkcommon/Names.h"

#include "platform/vdsdkcommon/DataSetQueries.h"
#include "tests/host/SampleSession.h"

namespace veldraw::tests {

using namespace veldraw::sdk;

class Names : public SampleSession
{
protected:
    void SetUp() override
    {
        SampleSession::SetUp();
        m_dataSet = makeDataSet({"X", "P"});
        addZone(*m_dataSet, "inlet", 4);
        addZone(*m_dataSet, "outlet", 4);
        m_frame = show(m_dataSet, PlotType_XYLine);
        m_other = session().createFrame("empty", {0, 0, 1, 1});
    }

    std::shared_ptr<kernel::DataSet> m_dataSet;
    std::shared_ptr<kernel::Frame> m_frame;
    std::shared_ptr<kernel::Frame> m_other;
};

TEST_F(Names, AreThoseOfTheFramesDataSet)
{
    EXPECT_EQ(zoneNameForFrame(m_frame->id, 2), "outlet");
    EXPECT_EQ(variableNameForFrame(m_frame->id, 2), "P");
    EXPECT_EQ(variableNameFormattedForAliasesForFrame(m_frame->id, 1), "X");
    EXPECT_EQ(variableNameFormattedForAliases(1), ""); // the active frame is empty
    session().activateFrame(m_frame->id);
    EXPECT_EQ(variableNameFormattedForAliases(1), "X");
}

TEST_F(Names, AreEmptyForWhatDoesNotExist)
{
    for (int number : {-1, 0, 3}) {
        EXPECT_EQ(zoneNameForFrame(m_frame->id, number), "");
        EXPECT_EQ(variableNameForFrame(m_frame->id, number), "");
        EXPECT_EQ(zoneUniqueIDForFrame(m_frame->id, number), 0);
    }
    EXPECT_EQ(zoneNameForFrame(m_other->id, 1), "");
    EXPECT_EQ(variableNameForFrame(0, 1), "");
    EXPECT_EQ(zoneUniqueIDForFrame(0, 1), 0);
}

TEST_F(Names, LeadFromAZoneToItsIdentifierAndBack)
{
    long long const id = zoneUniqueIDForFrame(m_frame->id, 2);
    EXPECT_EQ(id, m_dataSet->zone(2)->id);
    EXPECT_EQ(zoneNumberByUniqueID(id), 0); // not of the active frame's data set
    session().activateFrame(m_frame->id);
    EXPECT_EQ(zoneNumberByUniqueID(id), 2);
    EXPECT_EQ(zoneNumberByUniqueID(0), 0);
}

TEST_F(Names, CanBeChangedAsOneStepOfUndo)
{
    EXPECT_NE(renameZoneForFrame(m_frame->id, 1, "nozzle"), 0);
    EXPECT_NE(renameVariableForFrame(m_frame->id, 2, "pressure"), 0);
    EXPECT_EQ(zoneNameForFrame(m_frame->id, 1), "nozzle");
    EXPECT_EQ(variableNameForFrame(m_frame->id, 2), "pressure");
    session().undo();
    EXPECT_EQ(variableNameForFrame(m_frame->id, 2), "P");
    EXPECT_EQ(zoneNameForFrame(m_frame->id, 1), "nozzle");
}

TEST_F(Names, OfADataSetCanBeChangedWhichIsNotTheActiveOne)
{
    std::string const title = m_dataSet->title();
    session().activateFrame(m_other->id);
    EXPECT_TRUE(dataSetExists(m_dataSet->id()));
    EXPECT_NE(renameDataSet(m_dataSet->id(), "Flow"), 0);
    EXPECT_EQ(m_dataSet->title(), "Flow");
    EXPECT_EQ(session().history().undoName(), "Data Set Title");
    session().undo();
    EXPECT_EQ(m_dataSet->title(), title);
}

TEST_F(Names, OfZonesAndVariablesCanBeChangedInADataSetWhichIsNotTheActiveOne)
{
    session().activateFrame(m_other->id);
    long long const zone = m_dataSet->zone(2)->id;
    long long const variable = m_dataSet->variable(2)->id;
    EXPECT_TRUE(zoneExists(zone));
    EXPECT_TRUE(variableExists(variable));
    EXPECT_NE(renameZone(zone, "nozzle"), 0);
    EXPECT_NE(renameVariable(variable, "pressure"), 0);
    EXPECT_EQ(m_dataSet->zone(2)->name, "nozzle");
    EXPECT_EQ(m_dataSet->variable(2)->name, "pressure");
    session().undo();
    session().undo();
    EXPECT_EQ(m_dataSet->zone(2)->name, "outlet");
    EXPECT_EQ(m_dataSet->variable(2)->name, "P");
}

TEST_F(Names, AreNotChangedForWhatDoesNotExist)
{
    EXPECT_FALSE(zoneExists(m_dataSet->variable(1)->id));
    EXPECT_FALSE(variableExists(0));
    EXPECT_EQ(renameZone(0, "a"), 0);
    EXPECT_EQ(renameVariable(m_dataSet->zone(1)->id, "a"), 0);
    EXPECT_EQ(renameZone(m_dataSet->zone(1)->id, nullptr), 0);
    EXPECT_EQ(renameZone(m_dataSet->zone(1)->id, ""), 0);
    EXPECT_FALSE(dataSetExists(0));
    EXPECT_EQ(renameDataSet(0, "a"), 0);
    EXPECT_EQ(renameDataSet(m_dataSet->id(), nullptr), 0);
    EXPECT_EQ(renameZoneForFrame(m_frame->id, 3, "a"), 0);
    EXPECT_EQ(renameZoneForFrame(m_other->id, 1, "a"), 0);
    EXPECT_EQ(renameZoneForFrame(m_frame->id, 1, nullptr), 0);
    EXPECT_EQ(renameVariableForFrame(m_frame->id, 0, "a"), 0);
    EXPECT_EQ(renameVariableForFrame(0, 1, "a"), 0);
    EXPECT_EQ(renameVariableForFrame(m_frame->id, 1, nullptr), 0);
    EXPECT_EQ(zoneNameForFrame(m_frame->id, 1), "inlet");
}

} // namespace veldraw::tests

#include "kernel/operations/EnableZone.h"
#include "kernel/operations/SetPlotType.h"
#include "kernel/storage/ShareGroup.h"
#include "platform/vdsdkcommon/DataSetQueries.h"
#include "tests/host/SampleSession.h"

#include <gmock/gmock.h>

namespace veldraw::tests {

using namespace veldraw::sdk;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class VariableQueries : public SampleSession
{
protected:
    void SetUp() override
    {
        SampleSession::SetUp();
        m_dataSet = makeDataSet({"P", "X", "Y", "Z", "T"});
        addZone(*m_dataSet, "zone", 4, 4, 4);
        addZone(*m_dataSet, "other", 4, 4, 4);
        m_frame = show(m_dataSet, PlotType_Cartesian3D);
        ASSERT_EQ(m_frame->axisVariables(), (std::array<int, 3>{2, 3, 4}));
    }

    std::shared_ptr<kernel::DataSet> m_dataSet;
    std::shared_ptr<kernel::Frame> m_frame;
};

TEST_F(VariableQueries, FindTheEnabledVariables)
{
    session().perform(kernel::EnableVariable(*m_dataSet, 3, false));
    EXPECT_THAT(getEnabledVars().members(), ElementsAre(1, 2, 4, 5));
    EXPECT_THAT(getEnabledVarsForFrame(m_frame->id).members(), ElementsAre(1, 2, 4, 5));
    EXPECT_THAT(getEnabledVarsForFrame(m_frame->id + 1000).members(), IsEmpty());
}

TEST_F(VariableQueries, LeaveTheAxesOutIn3D)
{
    EXPECT_THAT(getNonSpatialEnabledVars().members(), ElementsAre(1, 5));
    session().perform(kernel::EnableVariable(*m_dataSet, 5, false));
    EXPECT_THAT(getNonSpatialEnabledVarsForFrame(m_frame->id).members(), ElementsAre(1));
}

TEST_F(VariableQueries, LeaveOnlyTwoAxesOutIn2D)
{
    session().perform(kernel::SetPlotType(m_frame->id, PlotType_Cartesian2D));
    EXPECT_THAT(getNonSpatialEnabledVars().members(), ElementsAre(1, 4, 5));
}

TEST_F(VariableQueries, LeaveNoAxisOutOfLinePlots)
{
    session().perform(kernel::SetPlotType(m_frame->id, PlotType_XYLine));
    EXPECT_THAT(getNonSpatialEnabledVars().members(), ElementsAre(1, 2, 3, 4, 5));
}

TEST_F(VariableQueries, FollowTheAxesOfTheFrame)
{
    session().perform(kernel::AssignVariable(m_frame->id, 'Z', 5));
    EXPECT_THAT(getNonSpatialEnabledVars().members(), ElementsAre(1, 4));
    session().perform(kernel::AssignVariable(m_frame->id, 'Z', 0));
    EXPECT_THAT(getNonSpatialEnabledVars().members(), ElementsAre(1, 4, 5));
}

TEST_F(VariableQueries, FindNothingThatWaitsToBeLoadedWhenAllIsInMemory)
{
    EXPECT_THAT(getNotLoadedVariablesForZone(1).members(), IsEmpty());
    EXPECT_THAT(getNotLoadedVariablesForZone(99).members(), IsEmpty());
}

TEST_F(VariableQueries, FindWhatWaitsToBeLoaded)
{
    m_dataSet->addVariable(std::make_shared<kernel::Variable>("passive"));
    for (std::size_t position : {0U, 3U, 4U}) {
        kernel::Field& field = m_dataSet->zone(1)->fields[position];
        auto group = std::make_shared<kernel::ShareGroup>(field.type(), field.group()->size(), nullptr);
        field = kernel::Field(std::move(group), field.location());
    }
    session().perform(kernel::EnableVariable(*m_dataSet, 4, false));
    EXPECT_THAT(getNotLoadedVariablesForZone(1).members(), ElementsAre(1, 5));
    EXPECT_THAT(getNotLoadedVariablesForZone(2).members(), IsEmpty());
}

TEST_F(VariableQueries, AllowRangesOfEnabledVariablesAlone)
{
    session().perform(kernel::EnableVariable(*m_dataSet, 1, false));
    EXPECT_FALSE(okToQueryForVarInfo(1));
    EXPECT_TRUE(okToQueryForVarInfo(2));
    EXPECT_FALSE(okToQueryForVarInfo(0));
    EXPECT_FALSE(okToQueryForVarInfo(6));
    session().removeAllPages();
    EXPECT_FALSE(okToQueryForVarInfo(2));
}

TEST_F(VariableQueries, AllowInterpolationWithAFieldPlotTwoZonesAndAVariable)
{
    EXPECT_TRUE(isOkToInterpolate());
    session().perform(kernel::SetPlotType(m_frame->id, PlotType_Cartesian2D));
    EXPECT_TRUE(isOkToInterpolate());
    session().perform(kernel::SetPlotType(m_frame->id, PlotType_XYLine));
    EXPECT_FALSE(isOkToInterpolate());
}

TEST_F(VariableQueries, ForbidInterpolationWithOneEnabledZone)
{
    session().perform(kernel::EnableZone(*m_dataSet, 2, false));
    EXPECT_FALSE(isOkToInterpolate());
}

TEST_F(VariableQueries, ForbidInterpolationWithoutAVariableBesideTheAxes)
{
    session().perform(kernel::EnableVariable(*m_dataSet, 1, false));
    EXPECT_TRUE(isOkToInterpolate());
    session().perform(kernel::EnableVariable(*m_dataSet, 5, false));
    EXPECT_FALSE(isOkToInterpolate());
}

TEST_F(VariableQueries, KnowWhetherThereIsADataSet)
{
    EXPECT_TRUE(dataSetAndFrameAreAvailable());
    session().createFrame("empty", {0, 0, 1, 1});
    EXPECT_FALSE(dataSetAndFrameAreAvailable());
    EXPECT_FALSE(isOkToInterpolate());
    session().removeAllPages();
    EXPECT_FALSE(dataSetAndFrameAreAvailable());
    EXPECT_FALSE(isOkToInterpolate());
    EXPECT_THAT(getEnabledVars().members(), IsEmpty());
    EXPECT_THAT(getNonSpatialEnabledVars().members(), IsEmpty());
    EXPECT_THAT(getNotLoadedVariablesForZone(1).members(), IsEmpty());
}

} // namespace veldraw::tests

#include "kernel/operations/EnableZone.h"
#include "platform/vdsdkcommon/DataSetQueries.h"
#include "tests/host/SampleSession.h"

#include <gmock/gmock.h>

namespace veldraw::tests {

using namespace veldraw::sdk;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ZoneQueries : public SampleSession
{
protected:
    void SetUp() override
    {
        SampleSession::SetUp();
        m_dataSet = makeDataSet({"X", "Y", "Z", "P"});
        addZone(*m_dataSet, "1: I", 4);
        addZone(*m_dataSet, "2: J", 1, 4);
        addZone(*m_dataSet, "3: K", 1, 1, 4);
        addZone(*m_dataSet, "4: IJ", 4, 4);
        addZone(*m_dataSet, "5: IK", 4, 1, 4);
        addZone(*m_dataSet, "6: JK", 1, 4, 4);
        addZone(*m_dataSet, "7: IJK", 4, 4, 4);
        addZone(*m_dataSet, "8: point", 1);
        addCellZone(*m_dataSet, "9: line", ZoneType_FELineSeg, 2);
        addCellZone(*m_dataSet, "10: triangle", ZoneType_FETriangle, 3);
        addCellZone(*m_dataSet, "11: brick", ZoneType_FEBrick, 8);
        m_frame = show(m_dataSet, PlotType_Cartesian3D);
    }

    std::shared_ptr<kernel::DataSet> m_dataSet;
    std::shared_ptr<kernel::Frame> m_frame;
};

TEST_F(ZoneQueries, FindTheEnabledZones)
{
    session().perform(kernel::EnableZone(*m_dataSet, 2, false));
    session().perform(kernel::EnableZone(*m_dataSet, 10, false));
    EXPECT_THAT(getEnabledZones().members(), ElementsAre(1, 3, 4, 5, 6, 7, 8, 9, 11));
    EXPECT_THAT(getEnabledZonesForFrame(m_frame->id).members(), ElementsAre(1, 3, 4, 5, 6, 7, 8, 9, 11));
}

TEST_F(ZoneQueries, FindTheZonesOfMoreThanOneDimension)
{
    session().perform(kernel::EnableZone(*m_dataSet, 5, false));
    EXPECT_THAT(getNonLinearEnabledZones().members(), ElementsAre(4, 6, 7, 10, 11));
    EXPECT_THAT(getNonLinearEnabledZonesForFrame(m_frame->id).members(), ElementsAre(4, 6, 7, 10, 11));
}

TEST_F(ZoneQueries, FindTheOrderedZonesOfOneDimension)
{
    session().perform(kernel::EnableZone(*m_dataSet, 1, false));
    EXPECT_THAT(getOrderedLinearZonesForFrame(m_frame->id).members(), ElementsAre(2, 3));
}

TEST_F(ZoneQueries, TellTheOrderOfAZone)
{
    EXPECT_EQ(getZoneOrder(1), ZoneOrder_I);
    EXPECT_EQ(getZoneOrder(2), ZoneOrder_J);
    EXPECT_EQ(getZoneOrder(3), ZoneOrder_K);
    EXPECT_EQ(getZoneOrder(4), ZoneOrder_IJ);
    EXPECT_EQ(getZoneOrder(5), ZoneOrder_IK);
    EXPECT_EQ(getZoneOrder(6), ZoneOrder_JK);
    EXPECT_EQ(getZoneOrder(7), ZoneOrder_IJK);
    EXPECT_EQ(getZoneOrder(8), ZoneOrder_I);
    EXPECT_EQ(getZoneOrder(0), ZoneOrder_I);
    EXPECT_EQ(getZoneOrder(99), ZoneOrder_I);
}

TEST_F(ZoneQueries, TellWhichZonesAreOrderedVolumes)
{
    for (int zone = 0; zone <= 12; ++zone)
        EXPECT_EQ(isOrderedVolumeZone(zone), zone == 7) << zone;
}

TEST_F(ZoneQueries, AreOfTheFrameThatIsAskedFor)
{
    auto const other = makeDataSet({"X", "Y"});
    addZone(*other, "only", 3, 3);
    auto const otherFrame = show(other, PlotType_Cartesian2D);
    EXPECT_THAT(getEnabledZones().members(), ElementsAre(1));
    EXPECT_THAT(getOrderedLinearZonesForFrame(m_frame->id).members(), ElementsAre(1, 2, 3));
    EXPECT_THAT(getNonLinearEnabledZonesForFrame(otherFrame->id).members(), ElementsAre(1));
}

TEST_F(ZoneQueries, AreEmptyWithoutAFrameOrDataSet)
{
    EXPECT_THAT(getEnabledZonesForFrame(0).members(), IsEmpty());
    session().createFrame("empty", {0, 0, 1, 1});
    EXPECT_THAT(getEnabledZones().members(), IsEmpty());
    EXPECT_THAT(getNonLinearEnabledZones().members(), IsEmpty());
    session().removeAllPages();
    EXPECT_THAT(getEnabledZones().members(), IsEmpty());
    EXPECT_FALSE(isOrderedVolumeZone(7));
    EXPECT_EQ(getZoneOrder(7), ZoneOrder_I);
}

} // namespace veldraw::tests

#include "kernel/operations/EnableZone.h"
#include "kernel/operations/LineMapOperation.h"
#include "kernel/operations/SetPlotType.h"
#include "platform/vdsdkcommon/DataSetQueries.h"
#include "tests/host/SampleSession.h"

#include <gmock/gmock.h>

namespace veldraw::tests {

using namespace veldraw::sdk;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class MapQueries : public SampleSession
{
protected:
    void SetUp() override
    {
        SampleSession::SetUp();
        m_dataSet = makeDataSet({"X", "Y"});
        for (int zone = 1; zone <= 5; ++zone)
            addZone(*m_dataSet, std::to_string(zone), 3, 3);
        // Two time strands and a static zone: field maps {1}, {2, 4}, {3, 5}.
        m_dataSet->zone(2)->strand = m_dataSet->zone(4)->strand = 7;
        m_dataSet->zone(3)->strand = m_dataSet->zone(5)->strand = 1;
        m_frame = show(m_dataSet, PlotType_Cartesian2D);
    }

    /// Line maps of the zones 2, 4 and 1; the second is switched off.
    void makeLineMaps()
    {
        session().perform(kernel::DeleteLineMaps(m_frame->id, {1}));
        for (int zone : {2, 4, 1}) {
            session().perform(kernel::CreateLineMap(m_frame->id));
            int const number = static_cast<int>(m_frame->lineMaps.size());
            session().perform(kernel::ChangeLineMaps(m_frame->id, {number}, [this, zone](kernel::LineMap& lineMap) {
                lineMap.zone = m_dataSet->zone(zone)->id;
                lineMap.active = zone != 4;
            }));
        }
        ASSERT_EQ(m_frame->lineMaps.size(), 3U);
    }

    std::shared_ptr<kernel::DataSet> m_dataSet;
    std::shared_ptr<kernel::Frame> m_frame;
};

TEST_F(MapQueries, CountOneFieldMapAStrandAndAStaticZone)
{
    EXPECT_THAT(getActiveFieldMaps().members(), ElementsAre(1, 2, 3));
}

TEST_F(MapQueries, CountAZeroAsAStrandAndANumberBelowAsNone)
{
    m_dataSet->zone(2)->strand = m_dataSet->zone(4)->strand = 0;
    m_dataSet->zone(3)->strand = m_dataSet->zone(5)->strand = -1;
    EXPECT_THAT(getActiveFieldMaps().members(), ElementsAre(1, 2, 3, 4));
}

TEST_F(MapQueries, LeaveOutFieldMapsWithoutAnEnabledZone)
{
    session().perform(kernel::EnableZone(*m_dataSet, 2, false));
    EXPECT_THAT(getActiveFieldMaps().members(), ElementsAre(1, 2, 3));
    session().perform(kernel::EnableZone(*m_dataSet, 4, false));
    EXPECT_THAT(getActiveFieldMaps().members(), ElementsAre(1, 3));
}

TEST_F(MapQueries, FindTheZonesThatAFieldPlotDraws)
{
    session().perform(kernel::EnableZone(*m_dataSet, 2, false));
    EXPECT_THAT(getActiveZones().members(), ElementsAre(1, 3, 4, 5));
}

TEST_F(MapQueries, FindTheZonesThatALinePlotDraws)
{
    session().perform(kernel::SetPlotType(m_frame->id, PlotType_XYLine));
    makeLineMaps();
    EXPECT_THAT(getActiveZones().members(), ElementsAre(1, 2));
    EXPECT_THAT(getZonesFromActiveLineMaps().members(), ElementsAre(1, 2));
}

TEST_F(MapQueries, FindNoZonesInASketch)
{
    session().perform(kernel::SetPlotType(m_frame->id, PlotType_Sketch));
    EXPECT_THAT(getActiveZones().members(), IsEmpty());
}

TEST_F(MapQueries, TellActiveFromEnabledLineMaps)
{
    makeLineMaps();
    EXPECT_THAT(getActiveLineMaps().members(), ElementsAre(1, 3));
    EXPECT_THAT(getEnabledLineMapsForFrame(m_frame->id).members(), ElementsAre(1, 2, 3));
}

TEST_F(MapQueries, LeaveOutLineMapsOfDisabledZones)
{
    makeLineMaps();
    session().perform(kernel::EnableZone(*m_dataSet, 2, false));
    EXPECT_THAT(getActiveLineMaps().members(), ElementsAre(3));
    EXPECT_THAT(getEnabledLineMapsForFrame(m_frame->id).members(), ElementsAre(2, 3));
    EXPECT_THAT(getZonesFromActiveLineMaps().members(), ElementsAre(1));
}

TEST_F(MapQueries, KnowTheLinePlotTypes)
{
    EXPECT_TRUE(isValidLinePlotType(PlotType_XYLine));
    EXPECT_TRUE(isValidLinePlotType(PlotType_PolarLine));
    EXPECT_FALSE(isValidLinePlotType(PlotType_Cartesian2D));
    EXPECT_FALSE(isValidLinePlotType(PlotType_Cartesian3D));
    EXPECT_FALSE(isValidLinePlotType(PlotType_Sketch));
}

TEST_F(MapQueries, AreEmptyWithoutADataSet)
{
    session().createFrame("empty", {0, 0, 1, 1});
    EXPECT_THAT(getActiveFieldMaps().members(), IsEmpty());
    EXPECT_THAT(getActiveLineMaps().members(), IsEmpty());
    EXPECT_THAT(getActiveZones().members(), IsEmpty());
    EXPECT_THAT(getZonesFromActiveLineMaps().members(), IsEmpty());
    EXPECT_THAT(getEnabledLineMapsForFrame(0).members(), IsEmpty());
}

} // namespace veldraw::tests

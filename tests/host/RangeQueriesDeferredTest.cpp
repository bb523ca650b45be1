#include "kernel/operations/EnableZone.h"
#include "kernel/operations/LineMapOperation.h"
#include "kernel/operations/SetPlotType.h"
#include "platform/vdsdkbase/VelUtilDataSet.h"
#include "platform/vdsdkbase/VelUtilDataValue.h"
#include "platform/vdsdkbase/VelUtilFrame.h"
#include "platform/vdsdkbase/VelUtilImport.h"
#include "platform/vdsdkbase/VelUtilPage.h"
#include "platform/vdsdkbase/VelUtilString.h"
#include "platform/vdsdkbase/VelUtilVar.h"
#include "platform/vdsdkbase/VelUtilZone.h"
#include "platform/vdsdkcommon/DataSetQueries.h"
#include "platform/vdtoolbox/AuxData.h"
#include "tests/host/SampleSession.h"

namespace veldraw::tests {

using namespace veldraw::sdk;

namespace {

int loads = 0;

/// Counts how often somebody wants values.
class CountingLoader : public kernel::ValueLoader
{
public:
    CountingLoader(kernel::ValueRange const& range, bool isMappedFile)
        : m_range(range)
        , m_isMapped(isMappedFile)
    {
    }

    std::shared_ptr<kernel::Buffer> load(kernel::Progress&) override
    {
        ++loads;
        return kernel::Buffer::allocate(FieldDataType_Double, 4);
    }
    kernel::ValueRange range() const override { return m_range; }
    bool isMapped() const override { return m_isMapped; }

private:
    kernel::ValueRange m_range;
    bool m_isMapped;
};

/// The same for dimensions.
class CountingDimensions : public kernel::DimensionsLoader
{
public:
    kernel::ZoneDimensions load(kernel::Progress&) override
    {
        ++loads;
        return {4, 1, 0, nullptr};
    }
};

} // namespace

/// Zones whose values and dimensions are all in a file: without a known range, with an estimate, and mapped with an estimate.
class DeferredQueries : public SampleSession
{
protected:
    void SetUp() override
    {
        SampleSession::SetUp();
        loads = 0;
        m_dataSet = makeDataSet({"X", "Y", "Z"});
        for (int number = 1; number <= 20; ++number) { // more than are looked at one by one
            auto zone = std::make_shared<kernel::Zone>("zone", ZoneType_FETriangle, -1, -1, -1);
            zone->dimensionsLoader = std::make_shared<CountingDimensions>();
            kernel::ValueRange const estimate{kernel::ValueRange::State::Estimated, -1.0, 1.0 * number};
            add(*zone, std::make_shared<CountingLoader>(kernel::ValueRange(), false));
            add(*zone, std::make_shared<CountingLoader>(estimate, false));
            add(*zone, std::make_shared<CountingLoader>(estimate, true));
            m_dataSet->addZone(zone);
        }
        m_frame = show(m_dataSet, PlotType_Cartesian2D);
    }

    static void add(kernel::Zone& zone, std::shared_ptr<kernel::ValueLoader> loader)
    {
        zone.fields.emplace_back(std::make_shared<kernel::ShareGroup>(FieldDataType_Double, -1, std::move(loader)),
                                 ValueLocation_Nodal);
    }

    static void askAllOfFrame()
    {
        EXPECT_TRUE(VelUtilDataSetIsAvailable());
        VelUtilDataSetGetInfo(nullptr, nullptr, nullptr);
        VelUtilDataSetIsLocked(nullptr);
        VelUtilImportGetLoaderInstrCount();
        VelUtilPageGetCount();
        VelUtilFrameGetCount();
        VelUtilFrameGetPlotType();
        getActiveLineMaps();
        getActiveFieldMaps();
        getZonesFromActiveLineMaps();
        getActiveZones();
    }

    static void askAllOf(int zone, int variable)
    {
        long long i = 0;
        VelUtilZoneGetMetrics(zone, &i, nullptr, nullptr, nullptr, nullptr, nullptr);
        EXPECT_EQ(i, -1);
        EXPECT_TRUE(VelUtilZoneIsEnabled(zone));
        EXPECT_EQ(VelUtilZoneGetType(zone), ZoneType_FETriangle);
        VelUtilZoneGetSolutionTime(zone);
        VelUtilZoneGetStrandID(zone);
        EXPECT_TRUE(VelUtilVarIsEnabled(variable));
        EXPECT_TRUE(okToQueryForVarInfo(variable));
        EXPECT_EQ(VelUtilDataValueGetType(zone, variable), FieldDataType_Double);
        EXPECT_EQ(VelUtilDataValueGetLocation(zone, variable), ValueLocation_Nodal);
        EXPECT_EQ(VelUtilVarGetStatus(zone, variable), VarStatus_NotLoaded);
        EXPECT_FALSE(VelUtilDataValueIsPassive(zone, variable));
        EXPECT_EQ(VelUtilVarIsSZLData(zone, variable), variable == 3);
        EXPECT_EQ(VelUtilVarRangeIsEstimated(zone, variable), variable > 1);
        EXPECT_EQ(VelUtilDataValueIsMinMaxValidByZoneVar(zone, variable), variable > 1);
        double min = 7;
        double max = 7;
        EXPECT_EQ(getVarMinMaxForZone(variable, zone, false, min, max), variable > 1);
        EXPECT_EQ(max, variable > 1 ? zone : 7);
        toolbox::AuxData(AuxDataLocation_Zone, zone).size();
    }

    std::shared_ptr<kernel::DataSet> m_dataSet;
    std::shared_ptr<kernel::Frame> m_frame;
};

TEST_F(DeferredQueries, NeverLoadAnything)
{
    for (PlotType_e const plotType :
         {PlotType_Cartesian2D, PlotType_Cartesian3D, PlotType_XYLine, PlotType_PolarLine}) {
        session().perform(kernel::SetPlotType(m_frame->id, plotType));
        askAllOfFrame();
        for (int zone = 1; zone <= m_dataSet->zoneCount(); ++zone) {
            for (int variable = 1; variable <= 3; ++variable)
                askAllOf(zone, variable);
        }
        for (int variable = 1; variable <= 3; ++variable) {
            double min = 7;
            double max = 7;
            bool const isLine = isValidLinePlotType(plotType);
            EXPECT_EQ(getVarMinMaxForZoneSet(variable, getActiveZones(), false, min, max), variable > 1);
            EXPECT_EQ(max, variable == 1 ? 7 : isLine ? 1 : 20);
            EXPECT_EQ(isVarRangeEstimatedForAnyActiveZones(variable), variable > 1);
        }
    }
    EXPECT_EQ(loads, 0);
    for (auto const& zone : m_dataSet->zones())
        EXPECT_TRUE(zone->isDeferred());
}

TEST_F(DeferredQueries, FollowEachChangeOfWhatIsActive)
{
    double min = 0;
    double max = 0;
    auto const largest = [&] {
        max = -7;
        getVarMinMaxForZoneSet(2, getActiveZones(), false, min, max);
        return max;
    };
    EXPECT_EQ(largest(), 20);
    ASSERT_TRUE(session().perform(kernel::EnableZone(*m_dataSet, 20, false)));
    EXPECT_EQ(largest(), 19);
    ASSERT_TRUE(session().undo());
    EXPECT_EQ(largest(), 20);
    ASSERT_TRUE(session().perform(kernel::SetPlotType(m_frame->id, PlotType_XYLine)));
    EXPECT_EQ(largest(), 1) << "of the one line map";
    ASSERT_TRUE(session().perform(kernel::ChangeLineMaps(
        m_frame->id, {1}, [this](kernel::LineMap& lineMap) { lineMap.zone = m_dataSet->zone(5)->id; })));
    EXPECT_EQ(largest(), 5);
    auto const other = makeDataSet({"a", "b"});
    addZone(*other, "other", 3);
    auto const frame = show(other, PlotType_Cartesian2D);
    EXPECT_EQ(largest(), 202);
    session().activateFrame(m_frame->id);
    EXPECT_EQ(largest(), 5);
    ASSERT_TRUE(session().startFrameLoop());
    EXPECT_EQ(largest(), 5);
    ASSERT_TRUE(session().nextFrameInLoop());
    EXPECT_EQ(largest(), 202) << "the frame that a loop has come to";
    session().endFrameLoop();
    EXPECT_EQ(largest(), 5);
}

TEST_F(DeferredQueries, TellMappedValuesFromThoseThatAreReadAsAWhole)
{
    EXPECT_FALSE(VelUtilVarIsSZLData(1, 1));
    EXPECT_FALSE(VelUtilVarIsSZLData(1, 2)) << "though its range is an estimate";
    EXPECT_TRUE(VelUtilVarIsSZLData(1, 3));
    EXPECT_FALSE(VelUtilVarIsSZLData(0, 3));
    EXPECT_FALSE(VelUtilVarIsSZLData(1, 4));
}

} // namespace veldraw::tests

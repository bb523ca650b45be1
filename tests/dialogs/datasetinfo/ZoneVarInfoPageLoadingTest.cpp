#include "kernel/operations/DuplicateZones.h"
#include "kernel/operations/EnableZone.h"
#include "kernel/operations/RenameZone.h"
#include "kernel/operations/SetPlotType.h"
#include "tests/dialogs/datasetinfo/ZoneVarInfoFixture.h"
#include "tests/support/FakeStateChange.h"

namespace veldraw::tests {
namespace {

/// All that there is waits to be loaded.
class ZoneVarInfoPageLoadingTest : public ZoneVarInfoFixture
{
protected:
    ZoneVarInfoPageLoadingTest()
    {
        for (int zone = 1; zone <= 8; ++zone)
            waiting.append(*dataSet, "zone " + std::to_string(zone), 10, 20, 30);
        stage.session().setFrameDataSet(stage.frameID(), dataSet);
        stage.session().perform(kernel::SetPlotType(stage.frameID(), PlotType_Cartesian3D));
        IdleDispatcher::flush();
    }

    void selectEverything() const
    {
        for (int zone = 1; zone <= ui.selectedZonesList->model()->rowCount(); ++zone) {
            selectZone(zone);
            for (int variable = 1; variable <= ui.selectedVarsList->model()->rowCount(); ++variable)
                selectVariable(variable);
        }
    }

    std::shared_ptr<kernel::DataSet> const dataSet = SampleSession::makeDataSet({}, {"X", "Y", "Z", "P"});
    DeferredZones waiting;
};

TEST_F(ZoneVarInfoPageLoadingTest, NothingIsLoadedByWhatAUserDoes)
{
    selectEverything();
    enter(*ui.zoneNameLineEdit, "Hull");
    enter(*ui.varNameLineEdit, "Pressure");
    selectEverything();
    openAnew();
    EXPECT_EQ(waiting.timesLoaded(), 0);
}

TEST_F(ZoneVarInfoPageLoadingTest, NothingIsLoadedByWhatTheKernelTells)
{
    for (PlotType_e const plotType :
         {PlotType_XYLine, PlotType_Sketch, PlotType_PolarLine, PlotType_Cartesian2D, PlotType_Cartesian3D}) {
        stage.session().perform(kernel::SetPlotType(stage.frameID(), plotType));
        IdleDispatcher::flush();
        for (int kind = 0; kind <= 51; ++kind)
            if (kind != StateChange_KernelGoesDown)
                FakeStateChange(kind).send();
        IdleDispatcher::flush();
    }
    perform(kernel::RenameZone(*dataSet, 1, "Hull"));
    perform(kernel::EnableZone(*dataSet, 1, false));
    perform(kernel::EnableVariable(*dataSet, 1, false));
    for (int steps = 0; steps < 3; ++steps)
        EXPECT_TRUE(stage.session().undo());
    IdleDispatcher::flush();
    EXPECT_EQ(waiting.timesLoaded(), 0);
    EXPECT_EQ(shown("zoneIDimensionLineEdit"), "");
    EXPECT_EQ(shown("varSelectedMinLineEdit"), "Not Loaded");
    EXPECT_EQ(shown("varActiveMinLineEdit"), "--------");
}

} // namespace
} // namespace veldraw::tests

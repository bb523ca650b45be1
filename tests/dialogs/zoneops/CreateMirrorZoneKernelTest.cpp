#include "kernel/operations/SetPlotType.h"
#include "tests/dialogs/support/ActionUnderSpy.h"
#include "tests/dialogs/zoneops/CreateMirrorZoneFixture.h"

#include <gmock/gmock.h>

namespace veldraw::tests {
namespace {

using testing::ElementsAre;

std::string const mirrorFailed = "error: Error duplicating zone(s)";
std::string const mirrorCreated = "information: Mirror zone creation successful.";

class CreateMirrorZoneKernelTest : public ActionUnderSpy<CreateMirrorZoneFixture>
{
protected:
    /// What the kernel is asked for by a click on the button.
    std::string operationOfCreate()
    {
        spy.reset();
        clickAction();
        std::vector<std::string> const calls = spy.callsOf("VelUtilCreateMirrorZones");
        return calls.size() == 1 ? calls.front() : std::to_string(calls.size()) + " calls";
    }
};

TEST_F(CreateMirrorZoneKernelTest, MirrorsTheWholeSelectionInOneCall)
{
    clickRow(0);
    clickRow(2, Qt::ControlModifier);
    EXPECT_THAT(callsOfAction(), ElementsAre("VelUtilFrameGetPlotType()", "VelUtilCreateMirrorZones({1, 3}, 'Z')",
                                             "VelUtilFrameGetUniqueID()", // the list, which hears of the copies
                                             "VelUtilDialogMessageBox(\"Mirror zone creation successful.\", 2)"));
}

TEST_F(CreateMirrorZoneKernelTest, AsksForNothingWithoutASelection)
{
    EXPECT_THAT(callsOfAction(), ElementsAre("VelUtilDialogErrMsg(\"No source zones were specified\")"));
}

TEST_F(CreateMirrorZoneKernelTest, NamesTheCoordinateOfTheChoiceInA3DPlot)
{
    clickRow(1);
    EXPECT_EQ(operationOfCreate(), "VelUtilCreateMirrorZones({2}, 'Z')");
    clickChoice("3DXZ");
    EXPECT_EQ(operationOfCreate(), "VelUtilCreateMirrorZones({2}, 'Y')");
    clickChoice("3DYZ");
    EXPECT_EQ(operationOfCreate(), "VelUtilCreateMirrorZones({2}, 'X')");
}

TEST_F(CreateMirrorZoneKernelTest, NamesTheCoordinateOfTheChoiceInA2DPlot)
{
    showAs(PlotType_Cartesian2D);
    clickRow(1);
    EXPECT_EQ(operationOfCreate(), "VelUtilCreateMirrorZones({2}, 'Y')");
    clickChoice("2DY");
    EXPECT_EQ(operationOfCreate(), "VelUtilCreateMirrorZones({2}, 'X')");
}

TEST_F(CreateMirrorZoneKernelTest, NamesXInAnyOtherPlotWhateverIsChosen)
{
    CreateMirrorZonePropertiesManager manager;
    manager.sourceZones()->setValue({1});
    for (PlotType_e const other : {PlotType_XYLine, PlotType_PolarLine, PlotType_Sketch}) {
        showAs(other);
        spy.reset();
        spy.failNext("VelUtilCreateMirrorZones");
        manager.createMirrorZones();
        EXPECT_THAT(spy.callsOf("VelUtilCreateMirrorZones"), ElementsAre("VelUtilCreateMirrorZones({1}, 'X')"));
    }
}

TEST_F(CreateMirrorZoneKernelTest, ReadsThePlotTypeWhenItActs)
{
    clickRow(0);
    // No idle moment passes, so the form still shows the planes.
    sample.session().perform(kernel::SetPlotType(sample.frame()->id, PlotType_Cartesian2D));
    EXPECT_TRUE(choice("3DXY").isVisible());
    EXPECT_EQ(operationOfCreate(), "VelUtilCreateMirrorZones({1}, 'Y')");
}

TEST_F(CreateMirrorZoneKernelTest, TellsAFailureInTheWordsOfDuplicatingAndKeepsSelectionAndChoice)
{
    clickRow(0);
    clickRow(1, Qt::ControlModifier);
    clickChoice("3DXZ");
    std::string const stepBefore = sample.session().history().undoName();
    spy.failNext("VelUtilCreateMirrorZones");
    clickAction();
    expectTold({mirrorFailed}, "refused");
    EXPECT_EQ(spy.count("VelUtilCreateMirrorZones"), 1) << "nothing tries again by itself";
    EXPECT_THAT(rows(), ElementsAre("*1: Wing", "*2: Body", "3: Tail"));
    EXPECT_THAT(visibleChoices(), ElementsAre("3DXY", "*3DXZ", "3DYZ"));
    EXPECT_EQ(sample.session().history().undoName(), stepBefore);

    clickAction();
    expectTold({mirrorCreated}, "another try");
    EXPECT_EQ(zoneNames().size(), 5u);
}

TEST_F(CreateMirrorZoneKernelTest, TellsThatALockedDataSetRefuses)
{
    sample.session().setLock(sample.dataSet(), "another operation");
    clickRow(2);
    clickAction();
    expectTold({mirrorFailed}, "locked");
    EXPECT_EQ(zoneNames().size(), 3u);
}

TEST_F(CreateMirrorZoneKernelTest, AsksTheKernelNothingWhileListAndChoicesAreUsed)
{
    spy.reset();
    clickRow(0);
    clickRow(2, Qt::ControlModifier);
    clickChoice("3DYZ");
    EXPECT_EQ(spy.count("VelUtilCreateMirrorZones"), 0);
    EXPECT_EQ(spy.count("VelUtilFrameGetPlotType"), 0);
}

/// Every kernel call of the action, failing alone or with all that follow it.
class CreateMirrorZoneFailureTest : public CreateMirrorZoneKernelTest
{
protected:
    void sweep(void (KernelSpy::*fail)(int), bool messagesToo)
    {
        clickRow(1);
        std::vector<std::string> const calls = callsOfAction();
        ASSERT_EQ(calls.size(), 4u);
        for (std::size_t failing = 0; failing < calls.size(); ++failing) {
            std::string const when = calls[failing] + " fails";
            // Without a plot type it would mirror something else.
            bool const succeeds = !isCallOf(calls[failing], "VelUtilCreateMirrorZones") &&
                                  !isCallOf(calls[failing], "VelUtilFrameGetPlotType");
            sample.session().undo();
            EXPECT_EQ(rows().size(), 3u) << when;
            clickRow(1);
            messages.take();
            (spy.*fail)(static_cast<int>(failing) + 1);
            clickAction();
            spy.reset();
            EXPECT_EQ(zoneNames().size(), succeeds ? 4u : 3u) << when;
            bool const told = !messagesToo && !isCallOf(calls[failing], "VelUtilDialogMessageBox");
            expectTold(told ? std::vector<std::string>{succeeds ? mirrorCreated : mirrorFailed}
                            : std::vector<std::string>(),
                       when);
            if (!succeeds)
                clickAction();
            EXPECT_THAT(zoneNames(), ElementsAre("Wing", "Body", "Tail", "Body")) << when << ", then nothing";
        }
    }
};

TEST_F(CreateMirrorZoneFailureTest, StaysWholeAndReleasesItsGuardsWhicheverKernelCallFails)
{
    sweep(&KernelSpy::failCall, false);
}

TEST_F(CreateMirrorZoneFailureTest, StaysWholeAndReleasesItsGuardsWhenAllKernelCallsFailFromOneOn)
{
    sweep(&KernelSpy::failFrom, true);
}

} // namespace
} // namespace veldraw::tests

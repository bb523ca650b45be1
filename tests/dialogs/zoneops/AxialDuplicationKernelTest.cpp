#include "tests/dialogs/zoneops/AxialKernelFixture.h"

#include <cmath>
#include <gmock/gmock.h>

namespace veldraw::tests {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

class AxialDuplicationKernelTest : public AxialKernelFixture<AxialDuplicationFixture>
{
};

TEST_F(AxialDuplicationKernelTest, AsksForTheCopiesWithAllTheirArguments)
{
    clickRow(0);
    clickRow(2, Qt::ControlModifier);
    clickMark("xAxisButton");
    enter("yOrgBox", "0.5");
    enter("numberOfSegments", "8");
    enter("offsetAngle", "10");
    enter("numOfInstances", "4");
    spy.reset();
    spy.failNext("VelUtilDataAxialDuplicate");
    clickAction();
    EXPECT_THAT(spy.calls(),
                ElementsAreArray(after(questions, {"VelUtilDataAxialDuplicate(" + dataSet() +
                                                       ", {1, 3}, (1, 2, 3), true, (4), (5), (6), true, 45, 10, 3, "
                                                       "(0, 0.5, 0), (1, 0, 0), true)",
                                                   "VelUtilDialogErrMsg(\"Failed to perform axial duplication.\")"})));
}

TEST_F(AxialDuplicationKernelTest, FillsTheCircle)
{
    clickRow(1);
    enter("numberOfSegments", "8");
    clickMark("fullRotation_radioButton");
    clickMark("addZonesToExistingStrands_checkBox");
    EXPECT_EQ(refusedCall("VelUtilDataAxialDuplicate"),
              "VelUtilDataAxialDuplicate(" + dataSet() +
                  ", {2}, (1, 2, 3), true, (4), (5), (6), true, 45, 0, 7, (0, 0, 0), (0, 0, 1), false)");
    enter("numberOfSegments", "1");
    EXPECT_EQ(refusedCall("VelUtilDataAxialDuplicate"),
              "VelUtilDataAxialDuplicate(" + dataSet() +
                  ", {2}, (1, 2, 3), true, (4), (5), (6), true, 360, 0, 1, (0, 0, 0), (0, 0, 1), false)");
}

TEST_F(AxialDuplicationKernelTest, GivesBothAnglesInDegreesWhateverIsShown)
{
    clickRow(1);
    enter("angle_spinBox", "90");
    enter("offsetAngle", "180");
    chooseRadians("angleUnits_comboBox");
    chooseRadians("offsetAngleUnits");
    EXPECT_EQ(refusedCall("VelUtilDataAxialDuplicate"),
              "VelUtilDataAxialDuplicate(" + dataSet() +
                  ", {2}, (1, 2, 3), true, (4), (5), (6), true, 90, 180, 1, (0, 0, 0), (0, 0, 1), true)");
}

TEST_F(AxialDuplicationKernelTest, MakesARingOfTheChosenZoneByItsButton)
{
    for (int variable = 1; variable <= 6; ++variable)
        setValues(2, variable, {1.0 * variable, 0.0, 0.0, 0.0, 0.0, 0.0});
    clickRow(1);
    clickMark("fullRotation_radioButton");
    enter("numberOfSegments", "4");
    clickAction();
    EXPECT_THAT(messages.take(), IsEmpty());
    ASSERT_EQ(zoneNames().size(), 6u);
    EXPECT_EQ(rows().size(), 6u);
    EXPECT_DOUBLE_EQ(values(2, 1).front(), 1.0);
    std::vector<double> x;
    for (int zone = 4; zone <= 6; ++zone)
        x.push_back(std::round(values(zone, 1).front()));
    EXPECT_THAT(x, testing::UnorderedElementsAre(-2.0, -1.0, 2.0));
    sample.session().undo();
    EXPECT_EQ(zoneNames().size(), 3u);
    expectNothingHeld();
}

TEST_F(AxialDuplicationKernelTest, TellsRefusalsWithItsTitleFirst)
{
    EXPECT_THAT(
        callsOfAction(),
        ElementsAre("VelUtilDialogMessageBox(\"Axial Duplication requires selection of one or more zones.\", 0)"));
    clickMark("selectByStrand");
    EXPECT_THAT(
        callsOfAction(),
        ElementsAre("VelUtilDialogMessageBox(\"Axial Duplication requires selection of one or more strands.\", 0)"));
    clickRow(0);
    assign("Y", {1});
    messages.take();
    clickAction();
    EXPECT_THAT(messages.take(),
                ElementsAre("error: Axial Duplication requires that the spatial variables are unique."));
    expectNothingHeld();
}

TEST_F(AxialDuplicationKernelTest, LeavesAllAsItWasWhenTheKernelRefuses)
{
    clickRow(1);
    std::string const stepBefore = sample.session().history().undoName();
    refusedCall("VelUtilDataAxialDuplicate");
    EXPECT_THAT(messages.take(), ElementsAre("error: Failed to perform axial duplication."));
    EXPECT_EQ(sample.session().history().undoName(), stepBefore);
    EXPECT_THAT(rows(), ElementsAre("1: Wing", "*2: Body", "3: Tail"));
    expectNothingHeld();
}

TEST_F(AxialDuplicationKernelTest, StaysWholeAndReleasesItsGuardsWhicheverKernelCallFails)
{
    for (auto const fail : {&KernelSpy::failCall, &KernelSpy::failFrom}) {
        clickRow(1);
        std::vector<std::string> const calls = callsOfAction();
        ASSERT_GE(calls.size(), 7u);
        for (std::size_t failing = 0; failing < calls.size(); ++failing) {
            std::string const when = calls[failing] + " fails";
            sample.session().undo();
            EXPECT_THAT(zoneNames(), ElementsAre("Wing", "Body", "Tail")) << when;
            clickRow(1);
            messages.take();
            spy.reset();
            (spy.*fail)(static_cast<int>(failing) + 1);
            clickAction();
            bool const canTell = fail == &KernelSpy::failCall; // a message is a kernel call as well
            spy.reset();
            bool const isDone = zoneNames().size() > 3;
            EXPECT_EQ(messages.take().empty(), isDone || !canTell) << when;
            expectNothingHeld();
            if (!isDone)
                clickAction();
            EXPECT_THAT(messages.take(), IsEmpty()) << when << ", then nothing";
            EXPECT_THAT(zoneNames(), ElementsAre("Wing", "Body", "Tail", "Body")) << when << ", then nothing";
        }
        sample.session().undo();
    }
}

using AxialDuplicationGuardsTest = AxialGuardsFixture<AxialDuplicationFixture>;

TEST_F(AxialDuplicationGuardsTest, LocksTheApplicationWhileItCopiesAndTellsTheOutcome)
{
    refuseTwice();
}

} // namespace
} // namespace veldraw::tests

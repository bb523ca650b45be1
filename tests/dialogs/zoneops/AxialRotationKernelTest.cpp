#include "kernel/operations/DuplicateZones.h"
#include "kernel/operations/EnableZone.h"
#include "tests/dialogs/zoneops/AxialKernelFixture.h"

#include <cmath>
#include <gmock/gmock.h>

namespace veldraw::tests {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

class AxialRotationKernelTest : public AxialKernelFixture<AxialRotationFixture>
{
};

TEST_F(AxialRotationKernelTest, AsksForTheRotationWithAllItsArguments)
{
    clickRow(0);
    clickRow(2, Qt::ControlModifier);
    clickMark("yAxisButton");
    enter("xOrgBox", "1");
    enter("zOrgBox", "-3.5");
    enter("angle_spinBox", "30");
    spy.reset();
    spy.failNext("VelUtilDataRotate");
    clickAction();
    EXPECT_THAT(spy.calls(),
                ElementsAreArray(after(questions, {"VelUtilDataRotate(" + dataSet() +
                                                       ", {1, 3}, (1, 2, 3), true, (4), (5), (6), true, 30, "
                                                       "(1, 0, -3.5), (0, 1, 0))",
                                                   "VelUtilDialogErrMsg(\"Failed to perform axial rotation.\")"})));
}

TEST_F(AxialRotationKernelTest, GivesTheAngleInDegreesWhateverIsShown)
{
    clickRow(1);
    enter("angle_spinBox", "90");
    chooseRadians("angleUnits_comboBox");
    EXPECT_EQ(refusedCall("VelUtilDataRotate"),
              "VelUtilDataRotate(" + dataSet() +
                  ", {2}, (1, 2, 3), true, (4), (5), (6), true, 90, (0, 0, 0), (0, 0, 1))");
}

TEST_F(AxialRotationKernelTest, TellsThatThereIsNoVectorOrNoThirdDimension)
{
    clickRow(1);
    assign("U", {0});
    EXPECT_EQ(refusedCall("VelUtilDataRotate"),
              "VelUtilDataRotate(" + dataSet() +
                  ", {2}, (1, 2, 3), true, (0), (5), (6), false, 360, (0, 0, 0), (0, 0, 1))");
    showAs(PlotType_Cartesian2D);
    assign("XYUV", {2, 1, 4, 5});
    EXPECT_EQ(refusedCall("VelUtilDataRotate"),
              "VelUtilDataRotate(" + dataSet() +
                  ", {2}, (2, 1, 0), false, (4), (5), (0), true, 360, (0, 0, 0), (0, 0, 1))");
}

TEST_F(AxialRotationKernelTest, RotatesTheZonesOfTheSelectedStrands)
{
    makeStrand();
    clickMark("selectByStrand");
    clickRow(0);
    EXPECT_EQ(refusedCall("VelUtilDataRotate"),
              "VelUtilDataRotate(" + dataSet() +
                  ", {1, 3}, (1, 2, 3), true, (4), (5), (6), true, 360, (0, 0, 0), (0, 0, 1))");
}

TEST_F(AxialRotationKernelTest, RotatesNothingThatTheListDoesNotShow)
{
    makeStrand();
    clickMark("selectByStrand");
    clickRow(0);
    sample.session().perform(kernel::EnableZone(sample.dataSet(), 1, false));
    IdleDispatcher::flush();
    EXPECT_THAT(rows(), ElementsAre("*1: Tail (strand 1)", "2: Body"));
    EXPECT_EQ(refusedCall("VelUtilDataRotate"),
              "VelUtilDataRotate(" + dataSet() +
                  ", {3}, (1, 2, 3), true, (4), (5), (6), true, 360, (0, 0, 0), (0, 0, 1))");
}

TEST_F(AxialRotationKernelTest, RotatesTheCopiesOfAStrandWhoseLowestZoneIsDisabled)
{
    makeStrand();
    clickMark("selectByStrand");
    clickRow(0);
    sample.session().perform(kernel::EnableZone(sample.dataSet(), 1, false));
    ASSERT_TRUE(sample.session().perform(kernel::DuplicateZones(sample.dataSet(), {3})));
    IdleDispatcher::flush();
    EXPECT_THAT(rows(), ElementsAre("*1: Tail (strand 1)", "2: Body"));
    EXPECT_EQ(refusedCall("VelUtilDataRotate"),
              "VelUtilDataRotate(" + dataSet() +
                  ", {3, 4}, (1, 2, 3), true, (4), (5), (6), true, 360, (0, 0, 0), (0, 0, 1))");
}

TEST_F(AxialRotationKernelTest, RotatesNoZoneThatIsDisabledAfterItWasPicked)
{
    delete &dialog();
    pick({zonePick(1), zonePick(2)});
    sample.session().perform(kernel::EnableZone(sample.dataSet(), 1, false));
    launched();
    EXPECT_EQ(refusedCall("VelUtilDataRotate"),
              "VelUtilDataRotate(" + dataSet() +
                  ", {2}, (1, 2, 3), true, (4), (5), (6), true, 360, (0, 0, 0), (0, 0, 1))");
}

TEST_F(AxialRotationKernelTest, AsksForNothingWithoutASelection)
{
    EXPECT_THAT(callsOfAction(),
                ElementsAre("VelUtilDialogMessageBox(\"Axial Rotation requires selection of one or more zones.\", 0)"));
    expectNothingHeld();
}

TEST_F(AxialRotationKernelTest, LeavesAllAsItWasWhenTheKernelRefuses)
{
    clickRow(1);
    enter("angle_spinBox", "30");
    std::string const stepBefore = sample.session().history().undoName();
    refusedCall("VelUtilDataRotate");
    EXPECT_THAT(messages.take(), ElementsAre("error: Failed to perform axial rotation."));
    EXPECT_EQ(sample.session().history().undoName(), stepBefore);
    EXPECT_THAT(rows(), ElementsAre("1: Wing", "*2: Body", "3: Tail"));
    EXPECT_EQ(shown("angle_spinBox"), "30");
    expectNothingHeld();
}

TEST_F(AxialRotationKernelTest, TellsThatALockedDataSetRefuses)
{
    sample.session().setLock(sample.dataSet(), "another operation");
    clickRow(1);
    clickAction();
    EXPECT_THAT(messages.take(), ElementsAre("error: Failed to perform axial rotation."));
    expectNothingHeld();
}

TEST_F(AxialRotationKernelTest, CommitsWhatWasTypedBeforeItRotates)
{
    clickRow(1);
    box("angle_spinBox").type("45");
    spy.reset();
    spy.failNext("VelUtilDataRotate");
    QTest::keyClick(dialog().focusWidget(), Qt::Key_R, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return spy.count("VelUtilDataRotate") == 1; }));
    EXPECT_THAT(spy.callsOf("VelUtilDataRotate"), ElementsAre(testing::HasSubstr(" true, 45, ")));
}

std::vector<double> near(std::vector<double> values)
{
    for (double& value : values)
        value = std::round(value * 1e12) / 1e12 + 0.0;
    return values;
}

TEST_F(AxialRotationKernelTest, RotatesPositionAndVectorOfTheChosenZoneByItsButton)
{
    for (int const zone : {1, 2})
        for (int variable = 1; variable <= 6; ++variable)
            setValues(zone, variable, {1.0 * variable, 2.0 * variable, 3.0, 4.0, 5.0, 6.0});
    clickRow(1);
    enter("angle_spinBox", "90");
    clickAction();
    EXPECT_THAT(messages.take(), IsEmpty());
    EXPECT_THAT(near(values(2, 1)), ElementsAre(-2.0, -4.0, -3.0, -4.0, -5.0, -6.0));
    EXPECT_THAT(near(values(2, 2)), ElementsAre(1.0, 2.0, 3.0, 4.0, 5.0, 6.0));
    EXPECT_THAT(near(values(2, 3)), ElementsAre(3.0, 6.0, 3.0, 4.0, 5.0, 6.0));
    EXPECT_THAT(near(values(2, 4)), ElementsAre(-5.0, -10.0, -3.0, -4.0, -5.0, -6.0));
    EXPECT_THAT(near(values(2, 5)), ElementsAre(4.0, 8.0, 3.0, 4.0, 5.0, 6.0));
    EXPECT_THAT(values(1, 1), ElementsAre(1.0, 2.0, 3.0, 4.0, 5.0, 6.0));
    EXPECT_THAT(rows(), ElementsAre("1: Wing", "*2: Body", "3: Tail"));
    sample.session().undo();
    EXPECT_THAT(values(2, 1), ElementsAre(1.0, 2.0, 3.0, 4.0, 5.0, 6.0));
    EXPECT_THAT(values(2, 4), ElementsAre(4.0, 8.0, 3.0, 4.0, 5.0, 6.0));
    expectNothingHeld();
}

TEST_F(AxialRotationKernelTest, StaysWholeAndReleasesItsGuardsWhicheverKernelCallFails)
{
    for (int variable = 1; variable <= 6; ++variable)
        setValues(2, variable, {1.0 * variable, 2.0, 3.0, 4.0, 5.0, 6.0});
    clickRow(1);
    enter("angle_spinBox", "90");
    std::string const before = sample.session().history().undoName();
    std::vector<std::string> const calls = callsOfAction();
    ASSERT_GE(calls.size(), 7u);
    ASSERT_NE(sample.session().history().undoName(), before);
    for (std::size_t failing = 0; failing < calls.size(); ++failing) {
        std::string const when = calls[failing] + " fails";
        sample.session().undo();
        ASSERT_EQ(sample.session().history().undoName(), before) << when;
        EXPECT_THAT(values(2, 1), ElementsAre(1.0, 2.0, 3.0, 4.0, 5.0, 6.0)) << when;
        IdleDispatcher::flush();
        spy.reset();
        spy.failCall(static_cast<int>(failing) + 1);
        clickAction();
        bool const isDone = sample.session().history().undoName() != before;
        EXPECT_EQ(messages.take().empty(), isDone) << when;
        EXPECT_EQ(values(2, 1).front() != 1.0, isDone) << when;
        EXPECT_EQ(values(2, 4).front() != 4.0, isDone) << when << ", the vector";
        expectNothingHeld();
        spy.reset();
        if (!isDone)
            clickAction();
        EXPECT_THAT(messages.take(), IsEmpty()) << when << ", then nothing";
    }
}

TEST_F(AxialRotationKernelTest, TakesNoFailedQuestionForAnAnswer)
{
    clickRow(1);
    std::string const shows = "error: Axial Rotation could not find out what the frame shows.";
    for (int const n : {1, 2, 3}) {
        spy.reset();
        spy.failNext("VelUtilVarGetNumByAssignment", n);
        clickAction();
        EXPECT_THAT(messages.take(), ElementsAre(shows)) << n;
        EXPECT_EQ(spy.count("VelUtilDataRotate"), 0) << n;
    }
    spy.reset();
    spy.failNext("VelUtilFrameGetPlotType");
    clickAction();
    EXPECT_THAT(messages.take(), ElementsAre(shows));
    EXPECT_EQ(spy.count("VelUtilDataRotate"), 0);
}

TEST_F(AxialRotationKernelTest, RotatesAllOfTheChosenStrandsOrNone)
{
    makeStrand();
    clickMark("selectByStrand");
    clickRow(0);
    clickRow(1, Qt::ControlModifier);
    for (int const n : {1, 2, 3, 4}) {
        spy.reset();
        spy.failNext("VelUtilFieldMapGetZones", n);
        clickAction();
        EXPECT_THAT(messages.take(), ElementsAre("error: The zones of a strand could not be found out.")) << n;
        EXPECT_EQ(spy.count("VelUtilDataRotate"), 0) << n;
        expectNothingHeld();
    }
}

using AxialRotationGuardsTest = AxialGuardsFixture<AxialRotationFixture>;

TEST_F(AxialRotationGuardsTest, LocksTheApplicationWhileItRotatesAndTellsTheOutcome)
{
    refuseTwice();
}

} // namespace
} // namespace veldraw::tests

#include "kernel/operations/DuplicateZones.h"
#include "kernel/operations/EnableZone.h"
#include "tests/dialogs/support/ActionUnderSpy.h"
#include "tests/dialogs/support/RecordedGuards.h"
#include "tests/dialogs/zoneops/AxialFixture.h"

#include <cmath>
#include <gmock/gmock.h>

namespace veldraw::tests {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

/// The buttons of both dialogs as the kernel sees them.
template <typename Fixture>
class AxialKernelTest : public ActionUnderSpy<Fixture>
{
protected:
    using ActionUnderSpy<Fixture>::spy;

    /// The one call of a function; fails in the kernel, which is not the matter here.
    std::string refusedCall(char const* function)
    {
        spy.reset();
        spy.failNext(function);
        this->clickAction();
        std::vector<std::string> const calls = spy.callsOf(function);
        EXPECT_EQ(calls.size(), 1u);
        return calls.empty() ? "" : calls.front();
    }

    std::string dataSet() const { return std::to_string(this->sample.dataSet().id()); }

    void expectNothingHeld()
    {
        EXPECT_EQ(sdk::AppLock::depth(), 0);
        EXPECT_TRUE(this->dialog().isVisible());
    }
};

class AxialRotationKernelTest : public AxialKernelTest<AxialRotationFixture>
{
};

std::vector<std::string> const questions{
    "VelUtilFrameGetPlotType()",         "VelUtilAxisGetVarAssignments(out, out, out)",
    "VelUtilVarGetNumByAssignment('U')", "VelUtilVarGetNumByAssignment('V')",
    "VelUtilVarGetNumByAssignment('W')", "VelUtilDataSetGetUniqueID()"};

std::vector<std::string> after(std::vector<std::string> calls, std::vector<std::string> const& more)
{
    calls.insert(calls.end(), more.begin(), more.end());
    return calls;
}

TEST_F(AxialRotationKernelTest, AsksForTheRotationWithAllItsArguments)
{
    clickRow(0);
    clickRow(2, Qt::ControlModifier);
    click("yAxisButton");
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
    setPlotType(PlotType_Cartesian2D);
    assign("XYUV", {2, 1, 4, 5});
    EXPECT_EQ(refusedCall("VelUtilDataRotate"),
              "VelUtilDataRotate(" + dataSet() +
                  ", {2}, (2, 1, 0), false, (4), (5), (0), true, 360, (0, 0, 0), (0, 0, 1))");
}

TEST_F(AxialRotationKernelTest, TurnsTheZonesOfTheSelectedStrands)
{
    makeStrand();
    click("selectByStrand");
    clickRow(0);
    EXPECT_EQ(refusedCall("VelUtilDataRotate"),
              "VelUtilDataRotate(" + dataSet() +
                  ", {1, 3}, (1, 2, 3), true, (4), (5), (6), true, 360, (0, 0, 0), (0, 0, 1))");
}

TEST_F(AxialRotationKernelTest, TurnsNothingThatTheListDoesNotShow)
{
    makeStrand();
    click("selectByStrand");
    clickRow(0);
    sample.session().perform(kernel::EnableZone(sample.dataSet(), 1, false));
    IdleDispatcher::flush();
    EXPECT_THAT(rows(), ElementsAre("*1: Tail (strand 1)", "2: Body"));
    EXPECT_EQ(refusedCall("VelUtilDataRotate"),
              "VelUtilDataRotate(" + dataSet() +
                  ", {3}, (1, 2, 3), true, (4), (5), (6), true, 360, (0, 0, 0), (0, 0, 1))");
}

TEST_F(AxialRotationKernelTest, TurnsTheCopiesOfAStrandWhoseLowestZoneIsDisabled)
{
    makeStrand();
    click("selectByStrand");
    clickRow(0);
    sample.session().perform(kernel::EnableZone(sample.dataSet(), 1, false));
    ASSERT_TRUE(sample.session().perform(kernel::DuplicateZones(sample.dataSet(), {3})));
    IdleDispatcher::flush();
    EXPECT_THAT(rows(), ElementsAre("*1: Tail (strand 1)", "2: Body"));
    EXPECT_EQ(refusedCall("VelUtilDataRotate"),
              "VelUtilDataRotate(" + dataSet() +
                  ", {3, 4}, (1, 2, 3), true, (4), (5), (6), true, 360, (0, 0, 0), (0, 0, 1))");
}

TEST_F(AxialRotationKernelTest, TurnsNoZoneThatIsDisabledAfterItWasPicked)
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

TEST_F(AxialRotationKernelTest, TurnsPositionAndVectorOfTheChosenZoneByItsButton)
{
    for (int const zone : {1, 2})
        for (int variable = 1; variable <= 6; ++variable)
            fill(zone, variable, {1.0 * variable, 2.0 * variable, 3.0, 4.0, 5.0, 6.0});
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
        fill(2, variable, {1.0 * variable, 2.0, 3.0, 4.0, 5.0, 6.0});
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
        expectNothingHeld();
        spy.reset();
        if (!isDone)
            clickAction();
        EXPECT_THAT(messages.take(), IsEmpty()) << when << ", then nothing";
    }
}

class AxialDuplicationKernelTest : public AxialKernelTest<AxialDuplicationFixture>
{
};

TEST_F(AxialDuplicationKernelTest, AsksForTheCopiesWithAllTheirArguments)
{
    clickRow(0);
    clickRow(2, Qt::ControlModifier);
    click("xAxisButton");
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
    click("fullRotation_radioButton");
    click("addZonesToExistingStrands_checkBox");
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
        fill(2, variable, {1.0 * variable, 0.0, 0.0, 0.0, 0.0, 0.0});
    clickRow(1);
    click("fullRotation_radioButton");
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
    click("selectByStrand");
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

/// How the application is held while a message is on the screen.
template <typename Fixture>
class AxialGuardsTest : public Fixture
{
protected:
    AxialGuardsTest() { this->launched(); }

    /// First without a selection, then on a locked data set.
    void refuseTwice()
    {
        this->clickAction();
        this->sample.session().setLock(this->sample.dataSet(), "another operation");
        this->clickRow(0);
        this->clickAction();
        EXPECT_EQ(told.guards(), (RecordedGuards::Guards{{0, 0}, {1, 0}})) << "what is read before needs no lock";
        EXPECT_EQ(sdk::AppLock::depth(), 0);
    }

    RecordedGuards told;
};

using AxialRotationGuardsTest = AxialGuardsTest<AxialRotationFixture>;
using AxialDuplicationGuardsTest = AxialGuardsTest<AxialDuplicationFixture>;

TEST_F(AxialRotationGuardsTest, LocksTheApplicationWhileItTurnsAndTellsTheOutcome)
{
    refuseTwice();
}

TEST_F(AxialDuplicationGuardsTest, LocksTheApplicationWhileItCopiesAndTellsTheOutcome)
{
    refuseTwice();
}

} // namespace
} // namespace veldraw::tests

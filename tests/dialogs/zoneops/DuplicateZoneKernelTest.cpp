#include "kernel/operations/EnableZone.h"
#include "tests/dialogs/support/ActionUnderSpy.h"
#include "tests/dialogs/zoneops/DuplicateZoneFixture.h"

#include <gmock/gmock.h>

namespace veldraw::tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string const duplicateFailed = "error: Error duplicating zone(s)";
std::string const duplicateCreated = "information: Duplicate zone(s) created";

class DuplicateZoneKernelTest : public ActionUnderSpy<DuplicateZoneFixture>
{
};

TEST_F(DuplicateZoneKernelTest, CopiesTheWholeSelectionInOneCall)
{
    clickRow(0);
    clickRow(2, Qt::ControlModifier);
    EXPECT_THAT(callsOfAction(),
                ElementsAre("VelUtilArgListAlloc()", "VelUtilArgListAppendSet(list, \"SourceZones\", {1, 3})",
                            "VelUtilZoneCopyX(list)",
                            "VelUtilFrameGetUniqueID()", // the list, which hears of the copies
                            "VelUtilArgListDealloc(out)", "VelUtilDialogMessageBox(\"Duplicate zone(s) created\", 2)"));
}

TEST_F(DuplicateZoneKernelTest, CopiesAZoneOfAStrandWhoseLowestZoneIsDisabled)
{
    sample.dataSet().zone(1)->strand = sample.dataSet().zone(3)->strand = 1;
    ASSERT_TRUE(sample.session().perform(kernel::EnableZone(sample.dataSet(), 1, false)));
    IdleDispatcher::flush();
    ASSERT_THAT(rows(), ElementsAre("2: Body", "3: Tail"));
    clickRow(1);
    clickAction();
    expectTold({duplicateCreated}, "created");
    EXPECT_THAT(zoneNames(), ElementsAre("Wing", "Body", "Tail", "Tail"));
    EXPECT_EQ(sample.dataSet().zone(4)->strand, 1);
    EXPECT_TRUE(sample.dataSet().zone(4)->enabled);
    EXPECT_FALSE(sample.dataSet().zone(1)->enabled);
}

TEST_F(DuplicateZoneKernelTest, AllocatesAndCallsNothingWithoutASelection)
{
    EXPECT_THAT(callsOfAction(), ElementsAre("VelUtilDialogErrMsg(\"No zones are selected\")"));
}

TEST_F(DuplicateZoneKernelTest, GoesNoFurtherWithoutAnArgumentList)
{
    clickRow(1);
    spy.reset();
    spy.failNext("VelUtilArgListAlloc");
    clickAction();
    EXPECT_THAT(spy.calls(), ElementsAre("VelUtilArgListAlloc()", "VelUtilArgListDealloc(out)",
                                         "VelUtilDialogErrMsg(\"Error duplicating zone(s)\")"));
    EXPECT_EQ(zoneNames().size(), 3u);
}

TEST_F(DuplicateZoneKernelTest, FreesItsArgumentListWhenItCannotBeFilled)
{
    clickRow(1);
    spy.reset();
    spy.failNext("VelUtilArgListAppendSet");
    clickAction();
    EXPECT_THAT(spy.calls(),
                ElementsAre("VelUtilArgListAlloc()", "VelUtilArgListAppendSet(list, \"SourceZones\", {2})",
                            "VelUtilArgListDealloc(out)", "VelUtilDialogErrMsg(\"Error duplicating zone(s)\")"));
    EXPECT_EQ(zoneNames().size(), 3u);
}

TEST_F(DuplicateZoneKernelTest, FreesItsArgumentListWhenTheKernelRefuses)
{
    clickRow(1);
    spy.reset();
    spy.failNext("VelUtilZoneCopyX");
    clickAction();
    EXPECT_THAT(spy.calls(), ElementsAre("VelUtilArgListAlloc()", "VelUtilArgListAppendSet(list, \"SourceZones\", {2})",
                                         "VelUtilZoneCopyX(list)", "VelUtilArgListDealloc(out)",
                                         "VelUtilDialogErrMsg(\"Error duplicating zone(s)\")"));
    EXPECT_EQ(zoneNames().size(), 3u);
}

TEST_F(DuplicateZoneKernelTest, TellsAFailureAndKeepsTheSelectionForAnotherTry)
{
    clickRow(0);
    clickRow(1, Qt::ControlModifier);
    std::string const stepBefore = sample.session().history().undoName();
    spy.failNext("VelUtilZoneCopyX");
    clickAction();
    expectTold({duplicateFailed}, "refused");
    EXPECT_EQ(spy.count("VelUtilZoneCopyX"), 1) << "nothing tries again by itself";
    EXPECT_THAT(rows(), ElementsAre("*1: Wing", "*2: Body", "3: Tail"));
    EXPECT_EQ(sample.session().history().undoName(), stepBefore);

    clickAction();
    expectTold({duplicateCreated}, "another try");
    EXPECT_THAT(zoneNames(), ElementsAre("Wing", "Body", "Tail", "Wing", "Body"));
}

TEST_F(DuplicateZoneKernelTest, TellsThatALockedDataSetRefuses)
{
    sample.session().setLock(sample.dataSet(), "another operation");
    clickRow(2);
    clickAction();
    expectTold({duplicateFailed}, "locked");
    EXPECT_EQ(sample.session().lastError(), "The data set is locked.");
    EXPECT_EQ(zoneNames().size(), 3u);
}

TEST_F(DuplicateZoneKernelTest, AsksTheKernelNothingWhileTheListIsUsed)
{
    spy.reset();
    clickRow(0);
    clickRow(2, Qt::ControlModifier);
    EXPECT_EQ(spy.count("VelUtilZoneCopyX"), 0);
    EXPECT_EQ(spy.count("VelUtilArgListAlloc"), 0);
}

// Whether the zones are not copied when just this kernel call fails.
bool refuses(std::string const& call)
{
    return isCallOf(call, "VelUtilArgListAlloc") || isCallOf(call, "VelUtilArgListAppendSet") ||
           isCallOf(call, "VelUtilZoneCopyX");
}

// What the user is told when just this kernel call fails.
std::vector<std::string> toldWhenFailing(std::string const& call)
{
    if (isCallOf(call, "VelUtilDialogMessageBox"))
        return {};
    return {refuses(call) ? duplicateFailed : duplicateCreated};
}

TEST_F(DuplicateZoneKernelTest, StaysWholeAndReleasesItsGuardsWhicheverKernelCallFails)
{
    clickRow(1);
    std::vector<std::string> const calls = callsOfAction();
    ASSERT_EQ(calls.size(), 6u);
    for (std::size_t failing = 0; failing < calls.size(); ++failing) {
        std::string const when = calls[failing] + " fails";
        sample.session().undo();
        EXPECT_EQ(rows().size(), 3u) << when;
        clickRow(1);
        messages.take();
        spy.failCall(static_cast<int>(failing) + 1);
        clickAction();
        spy.reset();
        EXPECT_EQ(zoneNames().size(), refuses(calls[failing]) ? 3u : 4u) << when;
        expectTold(toldWhenFailing(calls[failing]), when);
        if (refuses(calls[failing]))
            clickAction();
        EXPECT_THAT(zoneNames(), ElementsAre("Wing", "Body", "Tail", "Body")) << when << ", then nothing";
    }
}

TEST_F(DuplicateZoneKernelTest, StaysWholeAndReleasesItsGuardsWhenAllKernelCallsFailFromOneOn)
{
    clickRow(1);
    std::vector<std::string> const calls = callsOfAction();
    ASSERT_EQ(calls.size(), 6u);
    for (std::size_t failing = 0; failing < calls.size(); ++failing) {
        std::string const when = calls[failing] + " and all after it fail";
        sample.session().undo();
        EXPECT_EQ(rows().size(), 3u) << when;
        clickRow(1);
        messages.take();
        spy.failFrom(static_cast<int>(failing) + 1);
        clickAction();
        spy.reset();
        EXPECT_EQ(zoneNames().size(), refuses(calls[failing]) ? 3u : 4u) << when;
        expectTold({}, when); // a message cannot be shown either
        if (refuses(calls[failing]))
            clickAction();
        EXPECT_THAT(zoneNames(), ElementsAre("Wing", "Body", "Tail", "Body")) << when << ", then nothing";
    }
}

} // namespace
} // namespace veldraw::tests

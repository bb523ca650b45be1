#include "dialogs/variableops/DeleteVariablePropertiesManager.h"
#include "kernel/operations/EnableZone.h"
#include "tests/dialogs/variableops/DeleteVariableFixture.h"
#include "tests/support/KernelSpy.h"

#include <gmock/gmock.h>

namespace veldraw::tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class DeleteVariableKernelTest : public DeleteVariableFixture
{
protected:
    DeleteVariableKernelTest() { launched(); }

    KernelSpy spy;
};

TEST_F(DeleteVariableKernelTest, DeletesTheWholeSelectionInOneCall)
{
    clickRow(0);
    clickRow(3);
    clickRow(1);
    spy.reset();
    clickAction();
    EXPECT_THAT(spy.callsOf("VelUtilDataSetDeleteVar"), ElementsAre("VelUtilDataSetDeleteVar({1, 2, 4})"));
    EXPECT_THAT(spy.callsOf("VelUtilDialogErrMsg"), IsEmpty());
}

TEST_F(DeleteVariableKernelTest, CallsNothingToDeleteWhenItRefuses)
{
    clickAction();
    for (int row = 0; row < 4; ++row)
        clickRow(row);
    clickAction();
    EXPECT_EQ(spy.count("VelUtilDataSetDeleteVar"), 0);
    EXPECT_THAT(spy.callsOf("VelUtilDialogErrMsg"),
                ElementsAre("VelUtilDialogErrMsg(\"No variables are selected\")",
                            "VelUtilDialogErrMsg(\"Cannot delete the last variable in a data set.\")"));
}

// A selection may name variables that are no longer enabled: the list lets go of them at idle only.
TEST_F(DeleteVariableKernelTest, ComparesWholeSetsAndNotTheirSizes)
{
    ASSERT_TRUE(sample.session().perform(kernel::EnableVariable(sample.dataSet(), 4, false)));
    sdk::ui::propertymanager::DeleteVariablePropertiesManager manager;
    auto const callsFor = [&](std::set<int> const& selection) {
        spy.reset();
        spy.failNext("VelUtilDataSetDeleteVar");
        manager.selectedVariables()->setValue(selection);
        manager.deleteSelectedVariables();
        return spy.callsOf("VelUtilDataSetDeleteVar");
    };
    EXPECT_THAT(callsFor({1, 2, 4}), ElementsAre("VelUtilDataSetDeleteVar({1, 2, 4})"));
    EXPECT_THAT(callsFor({1, 2, 3, 4}), ElementsAre("VelUtilDataSetDeleteVar({1, 2, 3, 4})"));
    EXPECT_THAT(callsFor({3}), ElementsAre("VelUtilDataSetDeleteVar({3})"));
    EXPECT_THAT(callsFor({1, 2, 3}), IsEmpty());
}

TEST_F(DeleteVariableKernelTest, TellsAFailureAndKeepsTheSelectionForAnotherTry)
{
    clickRow(2);
    spy.failNext("VelUtilDataSetDeleteVar");
    clickAction();
    EXPECT_THAT(messages.take(), ElementsAre("error: Error attempting to delete variable(s)"));
    EXPECT_EQ(spy.count("VelUtilDataSetDeleteVar"), 1) << "nothing tries again by itself";
    EXPECT_EQ(variableNames().size(), 4u);
    EXPECT_TRUE(dialog().isVisible());
    EXPECT_THAT(rows(), ElementsAre("1: X", "2: Y", "*3: P", "4: T"));

    clickAction();
    EXPECT_THAT(messages.take(), ElementsAre("information: Variable deletion successful"));
    EXPECT_THAT(variableNames(), ElementsAre("X", "Y", "T"));
}

TEST_F(DeleteVariableKernelTest, TellsThatALockedDataSetRefuses)
{
    sample.session().setLock(sample.dataSet(), "another operation");
    clickRow(2);
    clickAction();
    EXPECT_THAT(messages.take(), ElementsAre("error: Error attempting to delete variable(s)"));
    EXPECT_EQ(variableNames().size(), 4u);
}

// What the user is told when just this kernel call fails.
std::vector<std::string> toldWhenFailing(std::string const& call)
{
    if (call.rfind("VelUtilDataSetDeleteVar", 0) == 0)
        return {"error: Error attempting to delete variable(s)"};
    if (call.rfind("VelUtilDialogMessageBox", 0) == 0)
        return {};
    return {"information: Variable deletion successful"};
}

TEST_F(DeleteVariableKernelTest, ReleasesItsLockAndStaysWholeWhicheverKernelCallFails)
{
    clickRow(2);
    spy.reset();
    clickAction();
    std::vector<std::string> const calls = spy.calls();
    ASSERT_GE(calls.size(), 3u);
    for (std::size_t failing = 0; failing < calls.size(); ++failing) {
        SCOPED_TRACE(calls[failing] + " fails");
        sample.session().undo();
        EXPECT_THAT(rows(), testing::SizeIs(4));
        list().clearSelection();
        clickRow(2);
        messages.take();
        spy.failCall(static_cast<int>(failing) + 1);
        clickAction();
        spy.reset();
        bool const isRefused = calls[failing].rfind("VelUtilDataSetDeleteVar", 0) == 0;
        EXPECT_EQ(variableNames().size(), isRefused ? 4u : 3u);
        EXPECT_EQ(messages.take(), toldWhenFailing(calls[failing]));
        EXPECT_EQ(sdk::AppLock::depth(), 0);
        if (isRefused)
            clickAction();
        EXPECT_THAT(variableNames(), ElementsAre("X", "Y", "T")) << "a try without a failure succeeds";
    }
}

} // namespace
} // namespace veldraw::tests

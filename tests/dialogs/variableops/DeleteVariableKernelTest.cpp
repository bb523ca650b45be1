#include "dialogs/variableops/DeleteVariablePropertiesManager.h"
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
    clickDelete();
    EXPECT_THAT(spy.callsOf("VelUtilDataSetDeleteVar"), ElementsAre("VelUtilDataSetDeleteVar({1, 2, 4})"));
    EXPECT_THAT(spy.callsOf("VelUtilDialogErrMsg"), IsEmpty());
}

TEST_F(DeleteVariableKernelTest, CallsNothingToDeleteWhenItRefuses)
{
    clickDelete();
    for (int row = 0; row < 4; ++row)
        clickRow(row);
    clickDelete();
    EXPECT_EQ(spy.count("VelUtilDataSetDeleteVar"), 0);
    EXPECT_THAT(spy.callsOf("VelUtilDialogErrMsg"),
                ElementsAre("VelUtilDialogErrMsg(\"No variables are selected\")",
                            "VelUtilDialogErrMsg(\"Cannot delete the last variable in a data set.\")"));
}

TEST_F(DeleteVariableKernelTest, TellsAFailureAndKeepsTheSelectionForAnotherTry)
{
    clickRow(2);
    spy.failNext("VelUtilDataSetDeleteVar");
    clickDelete();
    EXPECT_THAT(messages.take(), ElementsAre("error: Error attempting to delete variable(s)"));
    EXPECT_EQ(spy.count("VelUtilDataSetDeleteVar"), 1) << "nothing tries again by itself";
    EXPECT_EQ(variableNames().size(), 4u);
    EXPECT_TRUE(dialog().isVisible());
    EXPECT_THAT(rows(), ElementsAre("1: X", "2: Y", "*3: P", "4: T"));

    clickDelete();
    EXPECT_THAT(messages.take(), ElementsAre("information: Variable deletion successful"));
    EXPECT_THAT(variableNames(), ElementsAre("X", "Y", "T"));
}

TEST_F(DeleteVariableKernelTest, TellsThatALockedDataSetRefuses)
{
    sample.session().setLock(sample.dataSet(), "another operation");
    clickRow(2);
    clickDelete();
    EXPECT_THAT(messages.take(), ElementsAre("error: Error attempting to delete variable(s)"));
    EXPECT_EQ(variableNames().size(), 4u);
}

TEST_F(DeleteVariableKernelTest, ReleasesItsLockAndStaysWholeWhicheverKernelCallFails)
{
    clickRow(2);
    spy.reset();
    clickDelete();
    int const calls = spy.count();
    ASSERT_GE(calls, 3);
    sample.session().undo();
    rows();
    for (int failing = 1; failing <= calls; ++failing) {
        SCOPED_TRACE("call " + std::to_string(failing) + " fails");
        list().clearSelection();
        clickRow(2);
        messages.take();
        std::size_t const stepsBefore = variableNames().size();
        spy.failCall(failing);
        clickDelete();
        spy.reset();
        EXPECT_EQ(sdk::AppLock::depth(), 0);
        bool const isDeleted = variableNames().size() < stepsBefore;
        auto const told = messages.take();
        EXPECT_TRUE(!isDeleted || variableNames() == (std::vector<std::string>{"X", "Y", "T"}));
        EXPECT_LE(told.size(), 1u);
        if (isDeleted)
            sample.session().undo();
        sample.session().setTitle(sample.dataSet(), "after " + std::to_string(failing));
        sample.session().setVariableEnabled(sample.dataSet(), 1, false);
        sample.session().setVariableEnabled(sample.dataSet(), 1, true);
        EXPECT_EQ(rows().size(), 4u);
    }
}

} // namespace
} // namespace veldraw::tests

#include "platform/vdsdkcommon/UndoState.h"

#include "kernel/operations/RenameFrame.h"
#include "kernel/operations/RenameZone.h"
#include "tests/host/SampleSession.h"

namespace veldraw::tests {

using sdk::AppLock;
using sdk::UndoState;
using sdk::UndoStateCategory_FrameContents;

class UndoStates : public SampleSession
{
};

TEST_F(UndoStates, MakeOneStepOfTheirKernelCalls)
{
    auto const dataSet = makeDataSet({"X", "Y"});
    addZone(*dataSet, "old", 4);
    auto const frame = show(dataSet, PlotType_XYLine);
    session().history().clear();
    {
        UndoState const undo(UndoStateCategory_FrameContents, false, true, AppLock::RecordAsUsual);
        session().perform(kernel::RenameZone(*dataSet, 1, "new"));
        session().perform(kernel::RenameFrame(frame->id, "other"));
    }
    EXPECT_EQ(session().history().undoName(), "Frame Contents");
    ASSERT_TRUE(session().undo());
    EXPECT_EQ(dataSet->zone(1)->name, "old");
    EXPECT_EQ(frame->name, "frame");
    EXPECT_FALSE(session().history().canUndo());
    ASSERT_TRUE(session().redo());
    EXPECT_EQ(dataSet->zone(1)->name, "new");
    EXPECT_EQ(frame->name, "other");
}

TEST_F(UndoStates, LeaveNoStepWhenNothingChanged)
{
    {
        UndoState const undo(UndoStateCategory_FrameContents, false, true, AppLock::RecordAsUsual);
    }
    EXPECT_FALSE(session().history().canUndo());
}

TEST_F(UndoStates, AreNamedByTheOutermost)
{
    auto const dataSet = makeDataSet({"X", "Y"});
    addZone(*dataSet, "old", 4);
    show(dataSet, PlotType_XYLine);
    session().history().clear();
    {
        UndoState const outer(UndoStateCategory_FrameContents, false, true, AppLock::RecordAsUsual);
        session().perform(kernel::RenameZone(*dataSet, 1, "first"));
        {
            UndoState const inner(UndoStateCategory_FrameContents, false, true, AppLock::RecordAsUsual);
            session().perform(kernel::RenameZone(*dataSet, 1, "second"));
        }
        EXPECT_FALSE(session().undo());
    }
    ASSERT_TRUE(session().undo());
    EXPECT_EQ(dataSet->zone(1)->name, "old");
}

TEST_F(UndoStates, HoldTheApplicationLock)
{
    UndoState const undo(UndoStateCategory_FrameContents, false, true, AppLock::DoNotRecord);
    EXPECT_EQ(AppLock::depth(), 1);
    EXPECT_FALSE(AppLock::isRecording());
}

} // namespace veldraw::tests

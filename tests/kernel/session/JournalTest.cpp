#include "kernel/session/Journal.h"

#include "kernel/operations/AddFrame.h"
#include "kernel/operations/CutOperation.h"
#include "kernel/operations/DeleteVariables.h"
#include "kernel/operations/LoadVariables.h"
#include "kernel/operations/MirrorZones.h"
#include "kernel/operations/RenameZone.h"
#include "kernel/operations/SetSolutionTime.h"
#include "tests/kernel/support/SessionFixture.h"
#include "tests/support/AllocationFailure.h"

namespace veldraw::tests {

using namespace kernel;

namespace {

class JournalTest : public SessionFixture
{
protected:
    using Texts = std::vector<std::string>;

    Texts texts() const
    {
        Texts all;
        for (auto const& entry : session.journal().entries())
            all.push_back((entry->isUndone ? "undone: " : "") + entry->text);
        return all;
    }

    void rename(std::string const& name) { ASSERT_TRUE(session.perform(RenameZone(*dataSet, 1, name))); }
};

} // namespace

TEST_F(JournalTest, HasACommandForEachOperation)
{
    rename("left wing");
    ASSERT_TRUE(session.perform(MirrorZones(frame->id, {1, 2}, 'X')));
    EXPECT_EQ((Texts{"rename-zone zone=1 name=\"left wing\"", "mirror-zones zones=1,2 plane=X"}), texts());
    EXPECT_EQ("rename-zone zone=1 name=\"left wing\"\nmirror-zones zones=1,2 plane=X\n", session.journal().script());
}

TEST_F(JournalTest, HasNothingForWhatWasRefusedOrChangedNothing)
{
    EXPECT_FALSE(session.perform(RenameZone(*dataSet, 9, "a")));
    rename(dataSet->zone(1)->name);
    EXPECT_EQ(Texts{}, texts());
}

TEST_F(JournalTest, MarksWhatIsUndone)
{
    rename("a");
    rename("b");
    ASSERT_TRUE(session.undo());
    EXPECT_EQ((Texts{"rename-zone zone=1 name=a", "undone: rename-zone zone=1 name=b"}), texts());
    EXPECT_EQ("rename-zone zone=1 name=a\n", session.journal().script());
    ASSERT_TRUE(session.redo());
    EXPECT_EQ((Texts{"rename-zone zone=1 name=a", "rename-zone zone=1 name=b"}), texts());
    ASSERT_TRUE(session.undo());
    rename("c");
    EXPECT_EQ((Texts{"rename-zone zone=1 name=a", "undone: rename-zone zone=1 name=b", "rename-zone zone=1 name=c"}),
              texts())
        << "what cannot be done again any more stays marked";
}

TEST_F(JournalTest, MarksAllOfAGroupThatIsUndone)
{
    session.history().beginGroup("Both");
    rename("a");
    rename("b");
    session.history().endGroup();
    ASSERT_TRUE(session.undo());
    EXPECT_EQ((Texts{"undone: rename-zone zone=1 name=a", "undone: rename-zone zone=1 name=b"}), texts());
    ASSERT_TRUE(session.redo());
    EXPECT_EQ((Texts{"rename-zone zone=1 name=a", "rename-zone zone=1 name=b"}), texts());
}

TEST_F(JournalTest, KeepsWhatTheHistoryHasNoMemoryFor)
{
    rename("a");
    session.history().setMemoryLimit(0);
    EXPECT_FALSE(session.history().canUndo());
    EXPECT_EQ((Texts{"rename-zone zone=1 name=a"}), texts());
}

TEST_F(JournalTest, SaysWhereNoCommandStandsForAnOperation)
{
    ASSERT_TRUE(session.perform(AddCut(frame->id, Cut())));
    EXPECT_EQ((Texts{"# New Slice"}), texts());
    EXPECT_FALSE(session.journal().entries()[0]->isCommand);
}

TEST_F(JournalTest, HasOneEntryForARun)
{
    for (double const time : {1.0, 2.0, 3.0})
        ASSERT_TRUE(session.perform(SetSolutionTime(frame->id, time, 7)));
    EXPECT_EQ((Texts{"set-solution-time time=3"}), texts());
    ASSERT_TRUE(session.undo());
    EXPECT_EQ((Texts{"undone: set-solution-time time=3"}), texts());
    ASSERT_TRUE(session.perform(SetSolutionTime(frame->id, 4.0, 8)));
    EXPECT_EQ((Texts{"undone: set-solution-time time=3", "set-solution-time time=4"}), texts());
}

TEST_F(JournalTest, ActivatesTheFrameThatACommandIsAbout)
{
    auto const other = std::make_shared<Frame>("other", Rectangle{});
    other->dataSet = sample::ordered({"X", "Y"}, 3);
    ASSERT_TRUE(session.perform(AddFrame(other)));
    rename("a"); // in the first frame, while the new one is active
    ASSERT_TRUE(session.perform(RenameZone(*other->dataSet, 1, "b")));
    ASSERT_TRUE(session.perform(AddFrame(AddFrame::frameFor(*session.activePage(), dataSet))));
    rename("c");
    ASSERT_TRUE(session.perform(AddFrame(AddFrame::frameFor(*session.activePage(), nullptr))));
    EXPECT_EQ("# New Frame\n"
              "rename-zone zone=1 name=a\n"
              "activate-frame frame=2\n"
              "rename-zone zone=1 name=b\n"
              "new-frame like=1\n"
              "rename-zone zone=1 name=c\n"
              "new-frame like=0\n",
              session.journal().script());
}

TEST_F(JournalTest, TellsWhichDataAFrameWasGiven)
{
    auto const added = session.createFrame("new", {0, 0, 1, 1});
    ASSERT_TRUE(session.setFrameDataSet(added->id, dataSet));
    auto const unseen = sample::ordered({"X", "Y"}, 3);
    ASSERT_TRUE(session.setFrameDataSet(added->id, unseen));
    EXPECT_EQ((Texts{"new-frame like=0", "set-frame-data like=1"}), texts()) << "unseen data come from a file";
}

TEST_F(JournalTest, ActivatesTheFrameThatIsGivenOtherData)
{
    auto const other = std::make_shared<Frame>("other", Rectangle{});
    other->dataSet = sample::ordered({"X", "Y"}, 3);
    ASSERT_TRUE(session.perform(AddFrame(other)));
    rename("a");
    ASSERT_TRUE(session.perform(RenameZone(*other->dataSet, 1, "b")));
    ASSERT_TRUE(session.setFrameDataSet(frame->id, other->dataSet));
    ASSERT_TRUE(session.perform(RenameZone(*other->dataSet, 1, "c")));
    EXPECT_EQ("# New Frame\n"
              "rename-zone zone=1 name=a\n"
              "activate-frame frame=2\n"
              "rename-zone zone=1 name=b\n"
              "activate-frame frame=1\n"
              "set-frame-data like=2\n"
              "activate-frame frame=2\n"
              "rename-zone zone=1 name=c\n",
              session.journal().script());
}

TEST_F(JournalTest, TakesCommandsOfOthers)
{
    session.journal().add("open file=a.vtu", session.pages());
    rename("a");
    EXPECT_EQ((Texts{"open file=a.vtu", "rename-zone zone=1 name=a"}), texts());
    session.journal().clear();
    EXPECT_EQ(Texts{}, texts());
    EXPECT_EQ("", session.journal().script());
    ASSERT_TRUE(session.undo()) << "the history goes on";
}

TEST_F(JournalTest, RecordsOnlyIfItsRuleAllows)
{
    bool isRecording = false;
    session.journal().setRule([&isRecording] { return isRecording; });
    rename("a");
    session.journal().add("open file=a.vtu", session.pages());
    EXPECT_EQ(Texts{}, texts());
    isRecording = true;
    rename("b");
    EXPECT_EQ((Texts{"rename-zone zone=1 name=b"}), texts());
}

TEST_F(JournalTest, TellsOfNewEntries)
{
    int calls = 0;
    int others = 0;
    int const first = session.journal().addListener([&calls] {
        ++calls;
        throw std::runtime_error("a list could not follow");
    });
    int const second = session.journal().addListener([&others] { ++others; });
    rename("a");
    EXPECT_EQ(1, calls);
    EXPECT_EQ(1, others);
    EXPECT_EQ("a", dataSet->zone(1)->name);
    session.journal().removeListener(first);
    rename("b");
    EXPECT_EQ(1, calls);
    EXPECT_EQ(2, others);
    session.journal().removeListener(second);
}

TEST_F(JournalTest, KnowsWhatDiffersFromTheFileByAnEntry)
{
    rename("a");
    ASSERT_TRUE(session.perform(SetSolutionTime(frame->id, 1.0)));
    session.journal().add("open files=a.vtu", session.pages());
    auto const& entries = session.journal().entries();
    ASSERT_EQ(3u, entries.size());
    EXPECT_TRUE(entries[0]->altersData);
    EXPECT_FALSE(entries[1]->altersData) << "what a frame shows stands in no file";
    EXPECT_FALSE(entries[2]->altersData);
}

TEST_F(JournalTest, ComesBeforeWhatListenersDo)
{
    bool isFirst = true;
    auto const subscription = session.events().subscribe([&](StateChangeEvent const& event) {
        if (event.kind == StateChange_ZonesRenamed && std::exchange(isFirst, false))
            session.perform(RenameVariable(*dataSet, 1, "x"));
    });
    rename("a");
    session.events().unsubscribe(subscription);
    EXPECT_EQ((Texts{"rename-zone zone=1 name=a", "rename-variable variable=1 name=x"}), texts());
}

TEST_F(JournalTest, HasNoEntryForAnOperationThatFailsForLackOfMemory)
{
    std::string const before = dataSet->zone(1)->name;
    int failed = 0;
    for (int request = 1; dataSet->zone(1)->name == before; ++request) {
        RenameZone renaming(*dataSet, 1, "a name that is too long for a string of its own");
        bool isDone = false;
        {
            AllocationFailure const failure(request);
            isDone = session.perform(renaming);
        }
        EXPECT_EQ(isDone ? 1u : 0u, session.journal().entries().size()) << request;
        failed += isDone ? 0 : 1;
        ASSERT_LT(request, 1000);
    }
    EXPECT_LT(3, failed);
}

} // namespace veldraw::tests

#include "kernel/undo/History.h"

#include <gtest/gtest.h>
#include <stdexcept>

using namespace veldraw::kernel;

namespace {

/// A history over a text that each step lengthens by a letter.
class HistoryOfText : public testing::Test
{
protected:
    History::Step step(char letter, std::int64_t bytes = 0)
    {
        return {std::string(1, letter), [this] { text.pop_back(); }, [this, letter] { text.push_back(letter); }, bytes};
    }

    void perform(char letter, std::int64_t bytes = 0)
    {
        text.push_back(letter);
        history.add(step(letter, bytes));
    }

    std::string text;
    History history{100};
};

} // namespace

TEST_F(HistoryOfText, TakesStepsBackAndDoesThemAgain)
{
    perform('a');
    perform('b');
    EXPECT_EQ(history.undoName(), "b");
    EXPECT_TRUE(history.undo());
    EXPECT_EQ(text, "a");
    EXPECT_EQ(history.undoName(), "a");
    EXPECT_EQ(history.redoName(), "b");
    EXPECT_TRUE(history.undo());
    EXPECT_EQ(text, "");
    EXPECT_FALSE(history.canUndo());
    EXPECT_TRUE(history.redo());
    EXPECT_TRUE(history.redo());
    EXPECT_EQ(text, "ab");
    EXPECT_FALSE(history.canRedo());
}

TEST_F(HistoryOfText, WithoutStepsDoesNothing)
{
    EXPECT_FALSE(history.undo());
    EXPECT_FALSE(history.redo());
    EXPECT_EQ(history.undoName(), "");
    EXPECT_EQ(history.redoName(), "");
    history.endGroup();
    EXPECT_FALSE(history.canUndo());
}

TEST_F(HistoryOfText, ForgetsWhatCouldBeDoneAgainAfterANewStep)
{
    perform('a', 10);
    history.undo();
    perform('b', 5);
    EXPECT_FALSE(history.canRedo());
    EXPECT_EQ(history.bytes(), 5);
}

TEST_F(HistoryOfText, MakesOneStepOfAGroupUnderTheOutermostName)
{
    history.beginGroup("outer");
    perform('a', 1);
    history.beginGroup("inner");
    perform('b', 2);
    history.endGroup();
    perform('c', 3);
    EXPECT_EQ(history.undoName(), "");
    history.endGroup();
    EXPECT_EQ(history.undoName(), "outer");
    EXPECT_EQ(history.bytes(), 6);
    EXPECT_TRUE(history.undo());
    EXPECT_EQ(text, "");
    EXPECT_FALSE(history.canUndo());
    EXPECT_TRUE(history.redo());
    EXPECT_EQ(text, "abc");
}

TEST_F(HistoryOfText, RefusesToGoBackWhileAGroupIsOpen)
{
    perform('a');
    perform('b');
    history.undo();
    history.beginGroup("open");
    EXPECT_FALSE(history.undo());
    EXPECT_FALSE(history.redo());
    history.endGroup();
    EXPECT_TRUE(history.redo());
    EXPECT_EQ(text, "ab");
}

TEST_F(HistoryOfText, LeavesNoStepOfAnEmptyGroup)
{
    history.beginGroup("nothing");
    history.endGroup();
    EXPECT_FALSE(history.canUndo());
    EXPECT_TRUE(history.isClean());
}

TEST_F(HistoryOfText, DropsTheOldestStepsWhenTheyHoldTooMuchMemory)
{
    perform('a', 60);
    perform('b', 30);
    perform('c', 30);
    EXPECT_EQ(history.bytes(), 60);
    EXPECT_TRUE(history.undo());
    EXPECT_TRUE(history.undo());
    EXPECT_FALSE(history.undo());
    EXPECT_EQ(text, "a");
}

TEST_F(HistoryOfText, DropsAStepThatAloneHoldsTooMuch)
{
    perform('a', 101);
    EXPECT_FALSE(history.canUndo());
    EXPECT_EQ(history.bytes(), 0);
    EXPECT_FALSE(history.isClean());
}

TEST_F(HistoryOfText, DropsWhatLiesFarthestAheadWhenTheLimitFalls)
{
    perform('a', 10);
    perform('b', 10);
    perform('c', 10);
    history.undo();
    history.undo();
    history.setMemoryLimit(15);
    EXPECT_FALSE(history.canUndo()) << "the oldest go first";
    EXPECT_EQ(history.bytes(), 10);
    EXPECT_TRUE(history.redo());
    EXPECT_FALSE(history.canRedo());
    EXPECT_EQ(text, "ab");
}

TEST_F(HistoryOfText, IsCleanExactlyWhereItWasSaved)
{
    EXPECT_TRUE(history.isClean());
    perform('a');
    EXPECT_FALSE(history.isClean());
    history.setClean();
    perform('b');
    EXPECT_FALSE(history.isClean());
    history.undo();
    EXPECT_TRUE(history.isClean());
    history.undo();
    EXPECT_FALSE(history.isClean());
    history.redo();
    EXPECT_TRUE(history.isClean());
}

TEST_F(HistoryOfText, IsNeverCleanAgainOnceTheSavedStateIsForgotten)
{
    perform('a');
    history.setClean();
    history.undo();
    perform('b');
    EXPECT_FALSE(history.isClean());
    history.undo();
    EXPECT_FALSE(history.isClean());
    history.redo();
    EXPECT_FALSE(history.isClean());
}

TEST_F(HistoryOfText, IsNotCleanWithinAGroupThatHasDoneSomething)
{
    history.beginGroup("group");
    EXPECT_TRUE(history.isClean());
    perform('a');
    EXPECT_FALSE(history.isClean());
    history.endGroup();
    EXPECT_FALSE(history.isClean());
}

TEST_F(HistoryOfText, ForgetsAllStepsAndStaysCleanOnlyIfItWas)
{
    history.clear();
    EXPECT_TRUE(history.isClean());
    perform('a', 5);
    perform('b', 5);
    history.undo();
    history.clear();
    EXPECT_FALSE(history.canUndo());
    EXPECT_FALSE(history.canRedo());
    EXPECT_EQ(history.bytes(), 0);
    EXPECT_FALSE(history.isClean());
}

TEST_F(HistoryOfText, ForgetsTheStepsOfAnOpenGroup)
{
    history.beginGroup("group");
    perform('a', 5);
    history.clear();
    perform('b', 7);
    history.endGroup();
    EXPECT_EQ(history.bytes(), 7);
    EXPECT_TRUE(history.undo());
    EXPECT_EQ(text, "a");
}

TEST_F(HistoryOfText, TellsItsListenerOfEveryChange)
{
    int calls = 0;
    history.setListener([&] { ++calls; });
    perform('a');
    EXPECT_EQ(calls, 1);
    history.undo();
    EXPECT_EQ(calls, 2);
    history.redo();
    EXPECT_EQ(calls, 3);
    history.setClean();
    EXPECT_EQ(calls, 4);
    history.clear();
    EXPECT_EQ(calls, 5);
}

TEST_F(HistoryOfText, SurvivesAListenerThatThrows)
{
    history.setListener([] { throw std::runtime_error("no"); });
    perform('a');
    EXPECT_TRUE(history.undo());
    EXPECT_EQ(text, "");
}

TEST_F(HistoryOfText, RefusesToGoBackWhileAStepIsRunning)
{
    perform('a');
    bool inner = true;
    history.add({"reentrant", [&] { inner = history.undo() || history.redo(); }, [] {}, 0});
    EXPECT_TRUE(history.undo());
    EXPECT_FALSE(inner);
    EXPECT_EQ(text, "a");
}

TEST_F(HistoryOfText, CannotDoAgainWhatAListenerBuiltOn)
{
    history.add({"watched", [this] { perform('x', 3); }, [] {}, 4});
    EXPECT_TRUE(history.undo());
    EXPECT_FALSE(history.canRedo());
    EXPECT_EQ(history.undoName(), "x");
    EXPECT_EQ(history.bytes(), 3);
}

TEST_F(HistoryOfText, KeepsTheOrderWhenAListenerAddsAStepWhileOneIsDoneAgain)
{
    history.add({"watched", [] {}, [this] { perform('x'); }, 0});
    history.undo();
    EXPECT_TRUE(history.redo());
    EXPECT_EQ(history.undoName(), "x");
    EXPECT_TRUE(history.undo());
    EXPECT_EQ(history.undoName(), "watched");
}

TEST_F(HistoryOfText, MayBeClearedByAStep)
{
    history.add({"clearing", [this] { history.clear(); }, [this] { history.clear(); }, 4});
    EXPECT_TRUE(history.undo());
    EXPECT_FALSE(history.canUndo());
    EXPECT_FALSE(history.canRedo());
    EXPECT_EQ(history.bytes(), 0);
}

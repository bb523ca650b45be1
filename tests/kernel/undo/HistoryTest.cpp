#include "kernel/undo/History.h"

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>

namespace veldraw::tests {

using namespace kernel;

namespace {

constexpr std::int64_t unit = 1 << 20; // beside which the notes of a step do not count

/// Lengthens a text by a letter.
class Letter : public Change
{
public:
    Letter(std::string& text, char letter, std::int64_t units)
        : m_text(text)
        , m_letter(letter)
        , m_held{units * unit, 0}
    {
    }

    void apply() noexcept override { m_text.push_back(m_letter); }
    void revert() noexcept override { m_text.pop_back(); }
    HeldMemory held() const noexcept override { return m_held; }

private:
    std::string& m_text;
    char m_letter;
    HeldMemory m_held;
};

/// Does one thing when it happens and another when it is taken back, and holds one amount or another after that.
class Script : public Change
{
public:
    using Action = std::function<void()>;

    Script(Action applied, Action reverted, std::int64_t unitsApplied = 0, std::int64_t unitsReverted = 0)
        : m_applied(std::move(applied))
        , m_reverted(std::move(reverted))
        , m_unitsApplied(unitsApplied)
        , m_unitsReverted(unitsReverted)
    {
    }

    void apply() noexcept override
    {
        m_isApplied = true;
        m_applied();
    }

    void revert() noexcept override
    {
        m_isApplied = false;
        m_reverted();
    }

    HeldMemory held() const noexcept override { return {(m_isApplied ? m_unitsApplied : m_unitsReverted) * unit, 0}; }

private:
    Action m_applied;
    Action m_reverted;
    std::int64_t m_unitsApplied;
    std::int64_t m_unitsReverted;
    bool m_isApplied = false;
};

void nothing() {}

/// A history over a text that each step lengthens by a letter; it may hold a hundred units.
class HistoryOfText : public testing::Test
{
protected:
    void perform(char letter, std::int64_t units = 0)
    {
        history.perform(std::string(1, letter), std::make_shared<Letter>(text, letter, units), dataSet);
    }

    void performScript(char const* name, Script::Action applied, Script::Action reverted, std::int64_t unitsApplied = 0,
                       std::int64_t unitsReverted = 0)
    {
        history.perform(name,
                        std::make_shared<Script>(std::move(applied), std::move(reverted), unitsApplied, unitsReverted));
    }

    std::int64_t units() const { return history.valueBytes() / unit; }

    static constexpr UniqueId dataSet = 7;
    static constexpr UniqueId otherDataSet = 8;
    std::string text;
    History history{100 * unit + unit / 2};
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
    EXPECT_EQ(units(), 5);
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
    EXPECT_EQ(units(), 6);
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
    EXPECT_EQ(units(), 60);
    EXPECT_TRUE(history.undo());
    EXPECT_TRUE(history.undo());
    EXPECT_FALSE(history.undo());
    EXPECT_EQ(text, "a");
}

TEST_F(HistoryOfText, DropsAStepThatAloneHoldsTooMuch)
{
    perform('a', 101);
    EXPECT_FALSE(history.canUndo());
    EXPECT_EQ(units(), 0);
    EXPECT_FALSE(history.isClean());
}

TEST_F(HistoryOfText, DropsWhatLiesFarthestAheadWhenTheLimitFalls)
{
    perform('a', 10);
    perform('b', 10);
    perform('c', 10);
    history.undo();
    history.undo();
    history.setMemoryLimit(15 * unit);
    EXPECT_FALSE(history.canUndo()) << "the oldest go first";
    EXPECT_EQ(units(), 10);
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

TEST_F(HistoryOfText, IsCleanForEachDataSetByItself)
{
    auto const change = [this](UniqueId id) { history.perform("x", std::make_shared<Letter>(text, 'x', 0), id); };
    change(dataSet);
    EXPECT_FALSE(history.isClean(dataSet));
    EXPECT_TRUE(history.isClean(otherDataSet)) << "no step has changed it";
    history.setClean(dataSet);
    EXPECT_TRUE(history.isClean());
    change(otherDataSet);
    change(dataSet);
    history.setClean(otherDataSet);
    EXPECT_TRUE(history.isClean(otherDataSet));
    EXPECT_FALSE(history.isClean(dataSet));
    EXPECT_FALSE(history.isClean());
    history.undo();
    EXPECT_TRUE(history.isClean()) << "each is as it was saved";
    history.undo();
    EXPECT_FALSE(history.isClean(otherDataSet));
    EXPECT_TRUE(history.isClean(dataSet));
}

TEST_F(HistoryOfText, IsCleanAfterStepsThatChangeNothingThatIsSaved)
{
    performScript("plot", nothing, nothing);
    EXPECT_TRUE(history.isClean());
    perform('a');
    history.setClean();
    history.undo();
    history.undo();
    history.redo();
    history.redo();
    EXPECT_TRUE(history.isClean());
}

TEST_F(HistoryOfText, KnowsWhatWasSavedWhenItsStepHasBeenDropped)
{
    perform('a', 60);
    history.setClean(dataSet);
    performScript("large", nothing, nothing, 60);
    EXPECT_EQ(history.undoName(), "large");
    EXPECT_TRUE(history.isClean());
    perform('b', 10);
    EXPECT_FALSE(history.isClean());
    history.undo();
    EXPECT_TRUE(history.isClean());
}

TEST_F(HistoryOfText, IsNotCleanAfterAGroupWhoseStepsWereForgottenMeanwhile)
{
    history.beginGroup("group");
    perform('a');
    history.clear();
    EXPECT_FALSE(history.isClean());
    history.endGroup();
    EXPECT_FALSE(history.isClean()) << "the letter is still there";
}

TEST_F(HistoryOfText, IsCleanAfterAGroupThatHasChangedNothingSinceItWasSavedAndCleared)
{
    history.beginGroup("group");
    perform('a');
    history.setClean(dataSet);
    history.clear();
    history.perform("b", std::make_shared<Letter>(text, 'b', 0), otherDataSet);
    EXPECT_TRUE(history.isClean(dataSet));
    EXPECT_FALSE(history.isClean(otherDataSet));
    history.endGroup();
    EXPECT_TRUE(history.isClean(dataSet));
}

TEST_F(HistoryOfText, IsNotCleanWhenAStepThatIsDoneAgainClearsAll)
{
    bool clears = false;
    auto const clear = [&] {
        if (clears)
            history.clear();
    };
    history.perform("clear", std::make_shared<Script>(clear, nothing), dataSet);
    history.undo();
    EXPECT_TRUE(history.isClean());
    clears = true;
    history.redo();
    EXPECT_FALSE(history.canUndo());
    EXPECT_FALSE(history.isClean());
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
    EXPECT_EQ(units(), 0);
    EXPECT_FALSE(history.isClean());
}

TEST_F(HistoryOfText, ForgetsTheStepsOfAnOpenGroup)
{
    history.beginGroup("group");
    perform('a', 5);
    history.clear();
    perform('b', 7);
    history.endGroup();
    EXPECT_EQ(units(), 7);
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
    history.beginGroup("group");
    perform('b');
    EXPECT_EQ(calls, 5);
    history.endGroup();
    EXPECT_EQ(calls, 6) << "now there is a step more";
    history.setClean(dataSet);
    EXPECT_EQ(calls, 7);
    history.setMemoryLimit(0);
    EXPECT_EQ(calls, 8);
    history.clear();
    EXPECT_EQ(calls, 9);
}

TEST_F(HistoryOfText, TellsItsListenerOfEachPartOfARun)
{
    int calls = 0;
    history.setListener([&] { ++calls; });
    constexpr UniqueId run = 5;
    history.performInRun("run", std::make_shared<Letter>(text, 'a', 0), run);
    EXPECT_EQ(calls, 1);
    history.performInRun("run", std::make_shared<Letter>(text, 'b', 0), run);
    EXPECT_EQ(calls, 2);
    EXPECT_EQ(text, "ab");
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
    performScript("reentrant", nothing, [&] { inner = history.undo() || history.redo(); });
    EXPECT_TRUE(history.undo());
    EXPECT_FALSE(inner);
    EXPECT_EQ(text, "a");
}

TEST_F(HistoryOfText, CannotDoAgainWhatAListenerBuiltOn)
{
    performScript(
        "watched", nothing, [this] { perform('x', 3); }, 4, 4);
    EXPECT_TRUE(history.undo());
    EXPECT_FALSE(history.canRedo());
    EXPECT_EQ(history.undoName(), "x");
    EXPECT_EQ(units(), 3);
}

TEST_F(HistoryOfText, KeepsTheOrderWhenAListenerAddsAStepWhileOneIsDoneAgain)
{
    bool isWatched = false;
    auto const addOne = [&] {
        if (isWatched) {
            perform('x');
        }
    };
    performScript("watched", addOne, nothing);
    history.undo();
    isWatched = true;
    EXPECT_TRUE(history.redo());
    EXPECT_EQ(history.undoName(), "x");
    EXPECT_TRUE(history.undo());
    EXPECT_EQ(history.undoName(), "watched");
}

TEST_F(HistoryOfText, DropsStepsForWhatAListenerAddsOnlyWhenTheRunningOneHasEnded)
{
    bool isWatched = false;
    auto const addLargeOne = [&] {
        if (isWatched) {
            perform('x', 95);
        }
    };
    perform('a', 10);
    performScript("watched", addLargeOne, nothing, 1, 1);
    history.undo();
    isWatched = true;
    EXPECT_TRUE(history.redo());
    EXPECT_EQ(units(), 96) << "the oldest has gone";
    EXPECT_EQ(history.undoName(), "x");
    EXPECT_TRUE(history.undo());
    EXPECT_EQ(history.undoName(), "watched");
}

TEST_F(HistoryOfText, MayBeClearedByAStep)
{
    performScript(
        "clearing", nothing, [this] { history.clear(); }, 4, 4);
    EXPECT_TRUE(history.undo());
    EXPECT_FALSE(history.canUndo());
    EXPECT_FALSE(history.canRedo());
    EXPECT_EQ(units(), 0);
}

TEST_F(HistoryOfText, KeepsStepsAgainAfterOneHasClearedIt)
{
    performScript("clearing", nothing, [this] { history.clear(); });
    EXPECT_TRUE(history.undo());
    perform('a', 5);
    EXPECT_TRUE(history.undo());
    EXPECT_TRUE(history.canRedo());
    EXPECT_TRUE(history.redo());
    EXPECT_TRUE(history.canUndo());
    EXPECT_EQ(units(), 5);
}

TEST_F(HistoryOfText, MayBeClearedByAStepThatIsDoneAgain)
{
    bool clears = false;
    performScript(
        "clearing", [&] { clears ? history.clear() : nothing(); }, nothing, 4, 4);
    EXPECT_TRUE(history.undo());
    clears = true;
    EXPECT_TRUE(history.redo());
    EXPECT_FALSE(history.canUndo());
    EXPECT_FALSE(history.canRedo());
    EXPECT_EQ(units(), 0);
}

TEST_F(HistoryOfText, MayBeClearedByAStepThatHappensForTheFirstTime)
{
    perform('a', 5);
    performScript(
        "clearing", [this] { history.clear(); }, nothing, 4, 4);
    EXPECT_FALSE(history.canUndo());
    EXPECT_EQ(history.bytes(), 0);
}

TEST_F(HistoryOfText, CountsAStepAnewWhenItIsTakenBackAndDoneAgain)
{
    performScript("step", nothing, nothing, 3, 7);
    EXPECT_EQ(units(), 3);
    history.undo();
    EXPECT_EQ(units(), 7);
    history.redo();
    EXPECT_EQ(units(), 3);
    history.undo();
    perform('a', 1);
    EXPECT_EQ(units(), 1);
}

TEST_F(HistoryOfText, CountsAGroupAnewWhenItIsTakenBack)
{
    history.beginGroup("group");
    performScript("first", nothing, nothing, 1, 20);
    performScript("second", nothing, nothing, 2, 30);
    EXPECT_EQ(units(), 0);
    history.endGroup();
    EXPECT_EQ(units(), 3);
    history.undo();
    EXPECT_EQ(units(), 50);
}

TEST_F(HistoryOfText, DropsStepsThatHoldTooMuchOnceTheyAreTakenBack)
{
    perform('a', 10);
    performScript("light", nothing, nothing, 1, 95);
    EXPECT_TRUE(history.undo());
    EXPECT_EQ(history.undoName(), "") << "the oldest goes first";
    EXPECT_EQ(history.redoName(), "light");
    EXPECT_EQ(units(), 95);
}

TEST_F(HistoryOfText, CountsStepsWithoutValuesToo)
{
    history.setMemoryLimit(10 * History::bytesOfStep);
    for (char letter = 'a'; letter < 'z'; ++letter) {
        perform(letter);
    }
    EXPECT_EQ(history.bytes(), 10 * History::bytesOfStep);
    int steps = 0;
    while (history.undo()) {
        ++steps;
    }
    EXPECT_EQ(steps, 10);
    EXPECT_EQ(history.bytes(), 10 * History::bytesOfStep) << "they can be done again";
}

} // namespace veldraw::tests

#include "app/recovery/RecoveryReplay.h"

#include "app/recovery/LeftWork.h"
#include "app/recovery/RecoveryKeeper.h"
#include "kernel/frames/Page.h"
#include "tests/app/recovery/ScriptedWork.h"
#include "tests/app/support/FileHelpers.h"

#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>

namespace veldraw::tests {

using app::ReplayOutcome;
using ::testing::HasSubstr;

namespace {

class RecoveryReplayTest : public ::testing::Test
{
protected:
    RecoveryReplayTest()
    {
        writeSampleFile(file);
        clear();
    }

    ~RecoveryReplayTest() override { clear(); }

    void clear()
    {
        session.clear();
        session.history().setClean();
    }

    /// Works with recovery, as far as a crash lets it.
    void doAndCrash(std::vector<std::string> const& lines)
    {
        {
            app::RecoveryKeeper const keeper(session, folder.path("recovery"));
            for (std::string const& line : lines)
                EXPECT_TRUE(work.run(line)) << line << ": " << session.lastError();
        }
        digest = digestOfSession();
        clear();
        auto const left = app::LeftWork::findAll(folder.path("recovery"));
        ASSERT_EQ(1u, left.size());
        steps = left.front()->content().steps;
    }

    ReplayOutcome repeat() { return app::replay(steps, session, work.files()); }

    std::string opening() const { return "open files=" + file; }

    TemporaryFolder folder;
    std::string const file = folder.path("a.vtm");
    kernel::Session& session = kernel::Session::instance();
    ScriptedWork work;
    std::uint64_t digest = 0;
    std::vector<app::RecoveryStep> steps;
};

} // namespace

TEST_F(RecoveryReplayTest, BringsBackEachBit)
{
    doAndCrash({opening(), "smooth zone=1 variable=4 passes=3", "duplicate-zones zones=2",
                "set-value zone=3 variable=4 index=7 value=0.1 shared=yes", "rotate-zones zones=1 angle=33.3",
                "rename-zone zone=1 name=\"a, b\"", "undo"});
    ReplayOutcome const outcome = repeat();
    EXPECT_TRUE(outcome.isWhole()) << outcome.reason;
    EXPECT_EQ(4, outcome.done);
    EXPECT_EQ(4, outcome.wanted);
    EXPECT_EQ(digest, digestOfSession());
    EXPECT_EQ("left", session.activeDataSet()->zone(1)->name);
    EXPECT_FALSE(session.history().isClean());
}

TEST_F(RecoveryReplayTest, GoesFromFrameToFrame)
{
    doAndCrash({opening(), opening() + " new-frames=yes", "rename-zone zone=1 name=second", "activate-frame frame=1",
                "mirror-zones zones=1 plane=Y", "activate-frame frame=2",
                "set-value zone=1 variable=4 index=1 value=5"});
    EXPECT_TRUE(repeat().isWhole());
    EXPECT_EQ(digest, digestOfSession());
    auto const& frames = session.activePage()->frames;
    ASSERT_EQ(2u, frames.size());
    EXPECT_EQ(3, frames[0]->dataSet->zoneCount());
    EXPECT_EQ("second", frames[1]->dataSet->zone(1)->name);
}

TEST_F(RecoveryReplayTest, SavesNothingAgain)
{
    std::string const saved = folder.path("saved.vtm");
    doAndCrash(
        {opening(), "rename-zone zone=1 name=a", "save file=" + saved, "set-value zone=1 variable=4 index=1 value=5"});
    std::filesystem::remove(saved);
    EXPECT_TRUE(repeat().isWhole());
    EXPECT_EQ(digest, digestOfSession());
    EXPECT_FALSE(std::filesystem::exists(saved));
}

TEST_F(RecoveryReplayTest, TellsOfAFileThatIsAnotherOneNow)
{
    doAndCrash({opening(), "rename-zone zone=1 name=a"});
    folder.write("a.vtm", "other");
    ReplayOutcome const outcome = repeat();
    EXPECT_EQ(0, outcome.done);
    EXPECT_EQ(1, outcome.wanted);
    EXPECT_EQ(opening(), outcome.command);
    EXPECT_EQ("\"" + file + "\" has been changed since.", outcome.reason);
    EXPECT_TRUE(session.activePage()->frames.empty());
}

TEST_F(RecoveryReplayTest, GoesOnFromASaveThatHasReplacedTheFile)
{
    doAndCrash({opening(), "smooth zone=1 variable=4 passes=3", "assign-variable to=U variable=4",
                "disable-zone zone=2", "set-value zone=2 variable=1 index=5 value=0.1",
                "save file=" + file + " overwrite=yes", "set-value zone=1 variable=4 index=1 value=0.3",
                "mirror-zones zones=1 plane=X"});
    ReplayOutcome const outcome = repeat();
    EXPECT_TRUE(outcome.isWhole()) << outcome.command << ": " << outcome.reason;
    EXPECT_EQ(2, outcome.done);
    EXPECT_EQ(2, outcome.wanted);
    EXPECT_EQ(digest, digestOfSession());
    EXPECT_EQ(4, session.activeFrame()->variableNumber('U'));
    EXPECT_FALSE(session.activeDataSet()->zone(2)->enabled);
}

TEST_F(RecoveryReplayTest, DoesNotGoOnFromASaveWhereFieldsShareTheirValues)
{
    doAndCrash({opening(), "duplicate-zones zones=1", "save file=" + file + " overwrite=yes",
                "set-value zone=1 variable=4 index=1 value=0.3 shared=yes"});
    EXPECT_THAT(repeat().reason, HasSubstr("has been changed since"));
}

TEST_F(RecoveryReplayTest, DoesNotGoOnFromASaveOfWhichSomethingWasUndone)
{
    doAndCrash({opening(), "rename-zone zone=1 name=a", "rename-zone zone=1 name=b",
                "save file=" + file + " overwrite=yes", "undo"});
    EXPECT_THAT(repeat().reason, HasSubstr("has been changed since"));
}

TEST_F(RecoveryReplayTest, DoesNotGoOnFromASaveThatWasChanged)
{
    doAndCrash(
        {opening(), "rename-zone zone=1 name=a", "save file=" + file + " overwrite=yes", "rename-zone zone=1 name=b"});
    folder.write("a.vtm", "other");
    EXPECT_THAT(repeat().reason, HasSubstr("has been changed since"));
}

TEST_F(RecoveryReplayTest, TellsWhenASaveLacksSomething)
{
    doAndCrash(
        {opening(), "rename-zone zone=1 name=a", "save file=" + file + " overwrite=yes", "rename-zone zone=1 name=b"});
    for (app::RecoveryStep& step : steps) {
        if (step.base)
            step.base->state = "00000000";
    }
    ReplayOutcome const outcome = repeat();
    EXPECT_THAT(outcome.reason, HasSubstr("lacks something that the data set had"));
    EXPECT_EQ(0, outcome.done);
}

TEST_F(RecoveryReplayTest, TellsOfAPieceThatIsGone)
{
    doAndCrash({opening(), "rename-zone zone=1 name=a"});
    std::string const piece = steps.front().files.back().path;
    std::filesystem::remove(piece);
    EXPECT_EQ("\"" + piece + "\" is no longer there.", repeat().reason);
}

TEST_F(RecoveryReplayTest, EndsAtTheStepThatIsRefused)
{
    doAndCrash({opening(), "rename-zone zone=1 name=a", "rename-zone zone=1 name=b", "rename-zone zone=1 name=c"});
    steps[2].text = "rename-zone zone=9 name=b";
    ReplayOutcome const outcome = repeat();
    EXPECT_EQ(1, outcome.done);
    EXPECT_EQ(3, outcome.wanted);
    EXPECT_EQ("rename-zone zone=9 name=b", outcome.command);
    EXPECT_THAT(outcome.reason, HasSubstr("There is no zone 9"));
    EXPECT_EQ("a", session.activeDataSet()->zone(1)->name);
}

TEST_F(RecoveryReplayTest, LeavesOutWhatHasNoCommandUnlessItIsAboutData)
{
    doAndCrash({opening(), "rename-zone zone=1 name=a"});
    app::RecoveryStep remark;
    remark.kind = app::RecoveryStep::Kind::Remark;
    remark.text = "# Edit Slice";
    steps.insert(steps.begin() + 1, remark);
    EXPECT_TRUE(repeat().isWhole());
    clear();
    steps[1].altersData = true;
    ReplayOutcome const outcome = repeat();
    EXPECT_EQ("# Edit Slice", outcome.command);
    EXPECT_EQ(0, outcome.done);
}

} // namespace veldraw::tests

#include "app/recovery/RecoveryKeeper.h"

#include "app/recovery/LeftWork.h"
#include "host/MessageLog.h"
#include "kernel/operations/RenameZone.h"
#include "kernel/operations/SetSolutionTime.h"
#include "tests/app/recovery/ScriptedWork.h"
#include "tests/app/support/FileHelpers.h"
#include "tests/app/support/FullDisk.h"
#include "tests/support/AllocationFailure.h"

#include <QCoreApplication>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <optional>

namespace veldraw::tests {

using ::testing::HasSubstr;

namespace {

class RecoveryKeeperTest : public ::testing::Test
{
protected:
    RecoveryKeeperTest()
    {
        writeSampleFile(file);
        session.clear();
        session.history().setClean();
        host::MessageLog::instance().clear();
        keeper.emplace(session, folder.path("recovery"));
    }

    ~RecoveryKeeperTest() override
    {
        keeper.reset();
        session.clear();
        session.history().setClean();
    }

    void run(std::string const& line) { EXPECT_TRUE(work.run(line)) << line << ": " << session.lastError(); }
    /// As a program that starts again without anything to recover.
    void restart()
    {
        keeper.reset();
        std::filesystem::remove_all(folder.path("recovery"));
        session.clear();
        session.history().setClean();
        keeper.emplace(session, folder.path("recovery"));
    }

    void openFile() { run("open files=" + file); }

    std::vector<std::string> listing()
    {
        keeper->finish();
        std::vector<std::string> names;
        std::error_code error;
        for (auto const& entry : std::filesystem::directory_iterator(folder.path("recovery"), error))
            names.push_back(entry.path().string());
        return names;
    }

    bool hasFile() { return !listing().empty(); }

    /// What is not undone according to the one file that there is, as after a crash.
    std::string kept()
    {
        std::vector<std::string> const files = listing();
        if (files.size() != 1)
            return std::to_string(files.size()) + " files";
        app::RecoveryContent const content = app::readRecords(contentOf(files.front()));
        EXPECT_TRUE(content.isReadable && !content.isDamaged);
        std::string text;
        for (app::RecoveryStep const& step : content.steps)
            if (!step.isUndone && step.kind == app::RecoveryStep::Kind::Command)
                text += (text.empty() ? "" : "; ") + step.text;
        return text;
    }

    TemporaryFolder folder;
    std::string const file = folder.path("a.vtm");
    kernel::Session& session = kernel::Session::instance();
    ScriptedWork work;
    std::optional<app::RecoveryKeeper> keeper;
};

} // namespace

TEST_F(RecoveryKeeperTest, HasAFileFromTheFirstStepOnDataOn)
{
    openFile();
    run("set-plot-type type=2d");
    EXPECT_FALSE(hasFile()) << "what a file has and how it is shown is nothing to lose";
    run("rename-zone zone=1 name=a");
    EXPECT_EQ("set-plot-type type=2d; rename-zone zone=1 name=a", kept());
    run("set-value zone=1 variable=p index=3 value=7");
    EXPECT_EQ("set-plot-type type=2d; rename-zone zone=1 name=a; set-value zone=1 variable=4 index=3 value=7 shared=no",
              kept());
}

TEST_F(RecoveryKeeperTest, LeavesOutWhatIsUndone)
{
    openFile();
    run("rename-zone zone=1 name=a");
    run("rename-zone zone=1 name=b");
    run("undo");
    EXPECT_EQ("rename-zone zone=1 name=a", kept());
    run("redo");
    EXPECT_EQ("rename-zone zone=1 name=a; rename-zone zone=1 name=b", kept());
    run("undo");
    run("rename-zone zone=1 name=c");
    EXPECT_EQ("rename-zone zone=1 name=a; rename-zone zone=1 name=c", kept());
}

TEST_F(RecoveryKeeperTest, HasNoFileWhereNothingIsUnsaved)
{
    openFile();
    run("rename-zone zone=1 name=a");
    run("undo");
    EXPECT_FALSE(hasFile());
    run("redo");
    EXPECT_EQ("rename-zone zone=1 name=a", kept());
    run("save file=" + folder.path("saved.vtm"));
    EXPECT_FALSE(hasFile());
    run("undo");
    EXPECT_EQ("", kept()) << "a step that the saved file has is undone";
    EXPECT_TRUE(hasFile());
    run("redo");
    EXPECT_FALSE(hasFile());
    run("rename-zone zone=1 name=b");
    EXPECT_EQ("rename-zone zone=1 name=a; rename-zone zone=1 name=b", kept());
}

TEST_F(RecoveryKeeperTest, KeepsWhatASaveOfOtherDataLeavesUnsaved)
{
    openFile();
    run("rename-zone zone=1 name=a");
    run("open files=" + file + " new-frames=yes");
    run("rename-zone zone=1 name=b");
    run("save file=" + folder.path("saved.vtm"));
    EXPECT_EQ("rename-zone zone=1 name=a; rename-zone zone=1 name=b", kept());
    auto const left = app::readRecords(contentOf(listing().front()));
    EXPECT_EQ(2, app::countUnsaved(left.steps)) << "nothing is told of a save that leaves unsaved work";
}

TEST_F(RecoveryKeeperTest, ForgetsWhatWasThereWhenFilesAreOpenedInItsPlace)
{
    int calls = 0;
    openFile();
    run("rename-zone zone=1 name=a");
    keeper->setListener([&calls] { ++calls; });
    openFile();
    EXPECT_EQ(1, calls);
    EXPECT_FALSE(hasFile());
    run("rename-zone zone=1 name=b");
    EXPECT_EQ("rename-zone zone=1 name=b", kept());
}

TEST_F(RecoveryKeeperTest, NotesAllFilesThatAreRead)
{
    openFile();
    run("rename-zone zone=1 name=a");
    std::string const second = folder.path("b.vtm");
    writeSampleFile(second);
    run("open files=" + second + " new-frames=yes");
    auto const steps = app::readRecords(contentOf((hasFile(), listing().front()))).steps;
    ASSERT_EQ(3u, steps.size());
    ASSERT_EQ(3u, steps[0].files.size()) << "the index and its pieces";
    EXPECT_EQ(file, steps[0].files[0].path);
    EXPECT_EQ(3u, steps[2].files.size());
    for (auto const& step : steps)
        EXPECT_EQ("", app::differenceOf(step.files));
    for (auto const& stamped : steps[2].files)
        EXPECT_THAT(stamped.path, HasSubstr("/b"));
}

TEST_F(RecoveryKeeperTest, LeavesTheFileWithoutACleanEnd)
{
    openFile();
    run("rename-zone zone=1 name=a");
    keeper.reset();
    EXPECT_EQ(1u, app::LeftWork::findAll(folder.path("recovery")).size());
    keeper.emplace(session, folder.path("recovery"));
    run("rename-zone zone=1 name=b");
    keeper->forget();
    keeper.reset();
    EXPECT_EQ(1u, app::LeftWork::findAll(folder.path("recovery")).size());
}

TEST_F(RecoveryKeeperTest, WritesAllAtOnceAfterAPause)
{
    {
        app::RecoveryKeeper::Pause const pause(*keeper);
        openFile();
        run("rename-zone zone=1 name=a");
        run("rename-zone zone=1 name=b");
        run("undo");
        EXPECT_FALSE(hasFile());
    }
    EXPECT_EQ("rename-zone zone=1 name=a", kept());
    auto const steps = app::readRecords(contentOf(listing().front())).steps;
    EXPECT_EQ(3u, steps.front().files.size());
}

TEST_F(RecoveryKeeperTest, FollowsADragByItsLastMoment)
{
    openFile();
    run("rename-zone zone=1 name=a");
    kernel::UniqueId const frame = session.activeFrame()->id;
    for (double const time : {1.0, 2.0})
        ASSERT_TRUE(session.perform(kernel::SetSolutionTime(frame, time, 7)));
    EXPECT_EQ("rename-zone zone=1 name=a; set-solution-time time=2", kept());
}

TEST_F(RecoveryKeeperTest, TakesNoNameOfAFileForAParameter)
{
    std::string const named = folder.path("a new-frames=yes.vtm");
    writeSampleFile(named);
    openFile();
    run("rename-zone zone=1 name=a");
    run("open files=\"" + named + '"');
    EXPECT_FALSE(hasFile());
}

TEST_F(RecoveryKeeperTest, LeavesNoStepOutOfTheMiddleWithoutMemory)
{
    bool hasFailed = true;
    for (int request = 1; hasFailed; ++request) {
        openFile();
        bool isDone = false;
        {
            kernel::RenameZone renaming(*session.activeDataSet(), 1, "a");
            AllocationFailure const failure(request);
            isDone = session.perform(renaming);
            hasFailed = failure.hasHappened();
        }
        run("rename-zone zone=1 name=b");
        std::string const first = isDone ? "rename-zone zone=1 name=a" : "";
        std::string const both = first + (isDone ? "; " : "") + "rename-zone zone=1 name=b";
        EXPECT_THAT(kept(), ::testing::AnyOf("0 files", first, both)) << request;
        EXPECT_TRUE(hasFailed || isDone);
        restart();
    }
}

TEST_F(RecoveryKeeperTest, SaysOnceThatTheDiskIsFullAndLetsTheWorkGoOn)
{
    openFile();
    {
        FullDisk const disk;
        run("rename-zone zone=1 name=a");
        run("rename-zone zone=1 name=b");
        EXPECT_FALSE(keeper->finish());
        run("undo");
        run("undo");
        run("rename-zone zone=1 name=c");
        EXPECT_FALSE(keeper->finish());
    }
    QCoreApplication::processEvents();
    auto const& entries = host::MessageLog::instance().entries();
    ASSERT_EQ(1u, entries.size());
    EXPECT_THAT(entries.front().text, HasSubstr("cannot be recovered after a crash"));
    EXPECT_EQ("c", session.activeDataSet()->zone(1)->name);
    EXPECT_FALSE(hasFile());
}

} // namespace veldraw::tests

#include "app/import/child/ReaderProcess.h"

#include "app/files/ImportError.h"
#include "app/import/Importer.h"
#include "app/import/child/ReadingChild.h"
#include "tests/app/support/ChildProcesses.h"
#include "tests/app/support/FileHelpers.h"
#include "tests/app/support/GridSamples.h"
#include "tests/app/support/OpenFiles.h"
#include "tests/app/support/StartFailure.h"
#include "tests/app/support/WatchedProgress.h"

#include <chrono>
#include <csignal>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <thread>

namespace veldraw::tests {

using ::testing::EndsWith;
using ::testing::HasSubstr;

namespace {

/// Files in text, all of whose values the process has to read, on a thread that has kept no process yet.
class ReaderProcesses : public testing::Test
{
protected:
    ReaderProcesses() { app::ReadingChild::endKept(); } // what other tests have left

    std::string writeText(std::string const& name) const
    {
        auto const grid = unstructuredGrid(50, {{VTK_TETRA, {0, 1, 2, 3}}});
        addPointValues(*grid, "p", std::vector<double>(50, 1.5));
        return writeXml(*grid, folder.path(name), Mode::Ascii);
    }

    template <typename Work>
    static void onFreshThread(Work const& work)
    {
        std::thread(work).join();
    }

    /// @return programs that were started for it
    static int startsOf(std::string const& path)
    {
        int const before = StartFailure::started();
        std::string problem;
        onFreshThread([&] { problem = problemWith(path); });
        EXPECT_EQ(problem, "");
        return StartFailure::started() - before;
    }

    TemporaryFolder const folder;
};

} // namespace

TEST_F(ReaderProcesses, SayWhatIsWrongWhereThereIsNoRoomForOne)
{
    std::string const path = writeText("a.vtu");
    onFreshThread([&] {
        auto const filesBefore = openFileCount();
        {
            StartFailure const noRoom(1);
            std::string const problem = problemWith(path);
            EXPECT_THAT(problem, HasSubstr("Cannot open \"" + path + "\": the program \""));
            EXPECT_THAT(problem, EndsWith("veldraw_reader\" cannot be started: too many others run."));
        }
        EXPECT_EQ(openFileCount(), filesBefore);
        EXPECT_EQ(problemWith(path), "") << "as soon as there is room again";
    });
}

TEST_F(ReaderProcesses, AreStartedOnceForAFileOfSeveralPieces)
{
    std::string pieces;
    for (char const* name : {"a.vtu", "b.vtu", "c.vtu", "d.vtu"}) {
        writeText(name);
        pieces += std::string("<DataSet index=\"") + std::to_string(name[0] - 'a') + "\" file=\"" + name + "\"/>";
    }
    std::string const whole =
        folder.write("whole.vtm", R"(<VTKFile type="vtkMultiBlockDataSet" version="1.0"><vtkMultiBlockDataSet>)" +
                                      pieces + "</vtkMultiBlockDataSet></VTKFile>");
    EXPECT_EQ(startsOf(writeText("e.vtu")), 1);
    EXPECT_EQ(startsOf(whole), 1);
}

TEST_F(ReaderProcesses, AreStartedAnewForTheFileAfterOneThatWasRefused)
{
    std::string const good = writeText("a.vtu");
    std::string const text = contentOf(good);
    std::string const bad = folder.write("bad.vtu", text.substr(0, text.size() / 2));
    onFreshThread([&] {
        int const before = StartFailure::started();
        EXPECT_NE(problemWith(bad), "");
        int const afterBad = StartFailure::started();
        EXPECT_LE(afterBad - before, 1) << "the file is not tried again by another process";
        EXPECT_EQ(problemWith(good), "");
        EXPECT_EQ(StartFailure::started() - before, 1 + (afterBad - before));
        EXPECT_EQ(problemWith(good), "");
        EXPECT_EQ(StartFailure::started() - before, 1 + (afterBad - before));
    });
}

// Others may have left it in a bad state, which is nothing to the file.
TEST_F(ReaderProcesses, AreReplacedForAFileThatTheyDoNotGetThroughAfterOthers)
{
    app::ReadRequest request;
    request.path = writeText("a.vtu");
    request.extension = "vtu";
    int choices = 0;
    auto const choose = [&choices](app::FoundArrays const& found) {
        ++choices;
        return app::ReadChoice{found.ofPoints, found.ofCells, true, true};
    };
    auto const endThenChoose = [&choose](app::FoundArrays const& found) {
        for (pid_t const child : runningChildren("veldraw_reader"))
            ::kill(child, SIGKILL);
        return choose(found);
    };
    onFreshThread([&] {
        app::ReaderLimits const limits{1 << 30, 20, 60};
        kernel::Progress unwatched;
        app::ReadingChild().read(request, limits, choose, unwatched);
        int const before = StartFailure::started();
        app::ReadResult const result = app::ReadingChild().read(request, limits, endThenChoose, unwatched);
        EXPECT_EQ(StartFailure::started() - before, 1);
        EXPECT_EQ(choices, 2) << "the new one is told what the old one was";
        ASSERT_EQ(result.data.block.grid->ofPoints.size(), 1U);
        EXPECT_EQ(result.data.block.grid->ofPoints[0].tuples, 50);
    });
}

// As under a debugger, or by a user who suspends what eats his processor.
TEST_F(ReaderProcesses, AreNotWaitedForForEverWhenTheyAreStopped)
{
    app::ReadRequest request;
    request.path = writeText("a.vtu");
    request.extension = "vtu";
    auto const stopThenChoose = [](app::FoundArrays const& found) {
        for (pid_t const child : runningChildren("veldraw_reader"))
            ::kill(child, SIGSTOP);
        return app::ReadChoice{found.ofPoints, found.ofCells, true, true};
    };
    onFreshThread([&] {
        auto const start = std::chrono::steady_clock::now();
        kernel::Progress unwatched;
        std::string problem;
        try {
            app::ReadingChild().read(request, {1 << 30, 20, 1, 60}, stopThenChoose, unwatched);
        } catch (app::ImportError const& error) {
            problem = error.what();
        }
        EXPECT_EQ(problem, "it is damaged: the reader did not answer any more");
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(40)) << "also where a machine is busy";
    });
    EXPECT_TRUE(haveEnded("veldraw_reader"));
}

TEST_F(ReaderProcesses, HearACancelWhileTheyAreStopped)
{
    app::ReadRequest request;
    request.path = writeText("a.vtu");
    request.extension = "vtu";
    onFreshThread([&] {
        bool isStopped = false;
        auto const stopThenChoose = [&isStopped](app::FoundArrays const& found) {
            for (pid_t const child : runningChildren("veldraw_reader"))
                ::kill(child, SIGSTOP);
            isStopped = true;
            return app::ReadChoice{found.ofPoints, found.ofCells, true, true};
        };
        int asked = 0;
        WatchedProgress progress([&](double) { return !isStopped || ++asked < 3; });
        EXPECT_THROW(app::ReadingChild().read(request, {1 << 30, 20, 600, 600}, stopThenChoose, progress),
                     kernel::Interrupted);
        EXPECT_EQ(asked, 3);
    });
    EXPECT_TRUE(haveEnded("veldraw_reader"));
}

} // namespace veldraw::tests

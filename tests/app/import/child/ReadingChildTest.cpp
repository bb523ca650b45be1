#include "app/import/child/ReadingChild.h"

#include "app/files/ImportError.h"
#include "tests/app/support/ChildProcesses.h"
#include "tests/app/support/FileHelpers.h"
#include "tests/app/support/GridSamples.h"
#include "tests/app/support/OpenFiles.h"
#include "tests/app/support/WatchedProgress.h"

#include <algorithm>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <set>
#include <sys/stat.h>
#include <thread>

namespace veldraw::tests {

using ::testing::AnyOf;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

namespace {

constexpr app::ReaderLimits usualLimits{1 << 30, 20, 60};

// In bytes.
double peakMemoryOf(pid_t process)
{
    std::ifstream status("/proc/" + std::to_string(process) + "/status");
    for (std::string word; status >> word;) {
        double kilobytes = 0.0;
        if (word == "VmHWM:" && status >> kilobytes)
            return 1024.0 * kilobytes;
    }
    return 0.0;
}

app::ReadRequest requestFor(std::string const& path)
{
    app::ReadRequest request;
    request.path = path;
    request.extension = "vtu";
    return request;
}

app::ReadChoice everything(app::FoundArrays const& found)
{
    return {found.ofPoints, found.ofCells, true, true};
}

std::string nonsenseReader()
{
    return std::filesystem::path(app::ReaderProcess::usualProgram()).replace_filename("nonsense_reader").string();
}

std::string problemWithNonsense(std::string const& what, app::ReaderLimits const& limits = usualLimits)
{
    kernel::Progress progress;
    progress.setTotal(1000);
    try {
        app::ReadingChild(nonsenseReader()).read(requestFor("/" + what), limits, everything, progress);
        return {};
    } catch (app::ImportError const& error) {
        return error.what();
    }
}

} // namespace

TEST(ReadingChild, TakesWhatMakesSense)
{
    EXPECT_EQ(problemWithNonsense("good"), "");
}

TEST(ReadingChild, RefusesWhatMakesNone)
{
    for (char const* what :
         {"missing", "small", "open", "twice", "number", "nothing", "progress", "asks", "whole", "many"})
        EXPECT_THAT(problemWithNonsense(what), StartsWith("it is damaged: what was read of it makes no sense")) << what;
}

TEST(ReadingChild, CountsTheMemoryInFilesThatNobodyHasSeen)
{
    EXPECT_THAT(problemWithNonsense("hoards", {1 << 23, 20, 600}),
                StartsWith("it needs more memory than the 0.00839 GB"));
    EXPECT_EQ(problemWithNonsense("good"), "");
}

TEST(ReadingChild, TakesNoMoreMemoryThanTheFileMay)
{
    EXPECT_THAT(problemWithNonsense("large"), HasSubstr("more memory than there was to be"));
}

TEST(ReadingChild, StandsAThousandAnswersOfAnyBytes)
{
    int refused = 0;
    for (int seed = 1; seed <= 1000; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        std::string const problem = problemWithNonsense(std::to_string(seed), {1 << 30, 20, 0});
        EXPECT_THAT(problem, AnyOf(IsEmpty(), StartsWith("it"))) << problem;
        refused += problem.empty() ? 0 : 1;
    }
    EXPECT_GT(refused, 900);
}

TEST(ReadingChild, TellsThatTheReaderHasComeToAnEnd)
{
    for (char const* what : {"dies", "exits"})
        EXPECT_EQ(problemWithNonsense(what), "it is damaged: the reader did not get through it") << what;
}

TEST(ReadingChild, EndsAReaderThatSleeps)
{
    EXPECT_EQ(problemWithNonsense("sleeps", {1 << 20, 20, 0}), "it is damaged: the reader did not answer any more");
    EXPECT_TRUE(haveEnded("nonsense_reader"));
}

TEST(ReadingChild, EndsAReaderWhoseMessageHasNoEnd)
{
    EXPECT_EQ(problemWithNonsense("drips", {1 << 28, 20, 0}), "it is damaged: the reader did not answer any more");
    EXPECT_TRUE(haveEnded("nonsense_reader"));
}

TEST(ReadingChild, EndsAReaderThatSpeaksWithoutEnd)
{
    EXPECT_EQ(problemWithNonsense("chats", {1 << 28, 20, 600, 1}),
              "it is damaged: the reader did not come to an end with it");
    EXPECT_TRUE(haveEnded("nonsense_reader"));
}

TEST(ReadingChild, EndsAReaderThatDoesNotListen)
{
    EXPECT_EQ(problemWithNonsense("deaf", {1 << 28, 20, 0}), "it is damaged: the reader did not answer any more");
    EXPECT_TRUE(haveEnded("nonsense_reader"));
}

TEST(ReadingChild, EndsAReaderThatHasHungUpAndLivesOn)
{
    EXPECT_EQ(problemWithNonsense("hangs-up"), "it is damaged: the reader did not get through it");
    EXPECT_TRUE(haveEnded("nonsense_reader"));
}

TEST(ReadingChild, EndsAReaderThatWorksWithoutEnd)
{
    EXPECT_EQ(problemWithNonsense("works", {1 << 20, 1, 600}),
              "it is damaged: the reader did not come to an end with it");
    EXPECT_TRUE(haveEnded("nonsense_reader"));
}

TEST(ReadingChild, EndsItsReaderWhenTheUserCancels)
{
    for (char const* what : {"sleeps", "drips", "chats", "deaf", "works"}) {
        int asked = 0;
        WatchedProgress progress([&asked](double) { return ++asked < 6; });
        EXPECT_THROW(app::ReadingChild(nonsenseReader())
                         .read(requestFor(std::string("/") + what), {1 << 28, 20, 600}, everything, progress),
                     kernel::Interrupted)
            << what;
        EXPECT_TRUE(haveEnded("nonsense_reader")) << what;
    }
}

TEST(ReadingChild, LeavesNothingBehindOfReadersThatFail)
{
    auto const filesBefore = openFileCount();
    for (char const* what : {"missing", "open", "twice", "large", "whole", "dies", "hangs-up"})
        EXPECT_NE(problemWithNonsense(what), "") << what;
    EXPECT_EQ(openFileCount(), filesBefore);
    EXPECT_TRUE(haveEnded("nonsense_reader"));
}

TEST(ReadingChild, TakesNoAnswerToAnotherQuestion)
{
    EXPECT_EQ(problemWithNonsense("again"), "");
    kernel::Progress progress;
    progress.setTotal(1000);
    app::ReadResult const result =
        app::ReadingChild(nonsenseReader()).read(requestFor("/good"), usualLimits, everything, progress);
    EXPECT_EQ(result.data.block.grid->coordinates.size(), 1U) << "else it is the second answer to the question before";
}

TEST(ReadingChild, EndsTheReaderThatItKeepsWhenItIsToldTo)
{
    EXPECT_EQ(problemWithNonsense("good"), "");
    EXPECT_EQ(runningChildren("nonsense_reader").size(), 1U);
    app::ReadingChild::endKept();
    EXPECT_TRUE(haveEnded("nonsense_reader"));
}

TEST(ReadingChild, SaysThatTheReaderIsOfAnotherVersion)
{
    TemporaryFolder const folder;
    std::string const program = folder.path("stale_reader");
    std::filesystem::create_symlink(nonsenseReader(), program);
    kernel::Progress progress;
    try {
        app::ReadingChild(program).read(requestFor("/good"), usualLimits, everything, progress);
        FAIL();
    } catch (app::ImportError const& error) {
        EXPECT_EQ(error.what(),
                  "\"" + program + "\" is of another version than this program; start this program again");
    }
}

TEST(ReadingChild, StartsNoReaderThatThereIsNot)
{
    kernel::Progress progress;
    try {
        app::ReadingChild("/nowhere/reader").read(requestFor("/a"), usualLimits, everything, progress);
        FAIL();
    } catch (app::ImportError const& error) {
        EXPECT_THAT(error.what(), HasSubstr("\"/nowhere/reader\" cannot be started: there is no such file"));
    }
}

TEST(ReadingChild, KeepsAReaderThatDoesWellForTheSameThreadAlone)
{
    EXPECT_EQ(problemWithNonsense("good"), "");
    auto const kept = runningChildren("nonsense_reader");
    ASSERT_EQ(kept.size(), 1U);
    EXPECT_EQ(problemWithNonsense("good"), "");
    EXPECT_EQ(runningChildren("nonsense_reader"), kept);
    std::thread([&kept] {
        EXPECT_EQ(problemWithNonsense("good"), "");
        EXPECT_EQ(runningChildren("nonsense_reader").size(), 2U);
    }).join();
    EXPECT_TRUE(comesTrue([&kept] { return runningChildren("nonsense_reader") == kept; }))
        << "the other has ended with its thread";
    EXPECT_NE(problemWithNonsense("exits"), "");
    EXPECT_TRUE(haveEnded("nonsense_reader"));
}

TEST(ReadingChild, ReadsOnWithAnotherReaderWhenTheOneItKeptHasGone)
{
    EXPECT_EQ(problemWithNonsense("good"), "");
    for (pid_t const child : runningChildren("nonsense_reader"))
        ::kill(child, SIGKILL);
    EXPECT_EQ(problemWithNonsense("good"), "");
}

/// The real reader, over real files.
class RealReader : public ::testing::Test
{
protected:
    RealReader()
    {
        auto const grid = unstructuredGrid(40000, {{VTK_TETRA, {0, 1, 2, 3}}});
        addPointValues(*grid, "p", std::vector<double>(40000, 1.5));
        addPointValues(*grid, "q", std::vector<double>(40000, 2.5));
        path = writeXml(*grid, folder.path("a.vtu"));
    }

    app::ReadResult read(app::ReadingChild::Choose const& choose, kernel::Progress& watched,
                         app::ReaderLimits const& limits = usualLimits) const
    {
        return app::ReadingChild().read(requestFor(path), limits, choose, watched);
    }

    TemporaryFolder const folder;
    std::string path;
    kernel::Progress progress;
};

TEST_F(RealReader, IsToldWhichArraysToRead)
{
    app::FoundArrays found;
    auto const result = read(
        [&found](app::FoundArrays const& arrays) {
            found = arrays;
            return app::ReadChoice{{"q"}, {}, false, true};
        },
        progress);
    EXPECT_THAT(found.ofPoints, ::testing::ElementsAre("p", "q"));
    app::HandedGrid const& grid = *result.data.block.grid;
    EXPECT_TRUE(grid.coordinates.empty() || grid.coordinates[0].tuples == 0);
    ASSERT_EQ(grid.ofPoints.size(), 1U);
    app::HandedArray const& q = grid.ofPoints[0];
    EXPECT_EQ(q.name, "q");
    ASSERT_EQ(q.tuples, 40000);
    auto const* const values =
        reinterpret_cast<double const*>(static_cast<char const*>(result.segments[q.segment].memory.get()) + q.offset);
    EXPECT_EQ(values[0], 2.5);
    EXPECT_EQ(values[39999], 2.5);
}

TEST_F(RealReader, IsEndedByACancelWhileItWaits)
{
    std::thread([this] {
        auto const before = runningChildren("veldraw_reader"); // another thread may have kept one
        pid_t reader = 0;
        WatchedProgress cancelled([&](double) {
            for (pid_t const child : runningChildren("veldraw_reader")) {
                if (std::find(before.begin(), before.end(), child) == before.end())
                    reader = child;
            }
            return reader == 0;
        });
        EXPECT_THROW(read(everything, cancelled), kernel::Interrupted);
        EXPECT_NE(reader, 0);
        EXPECT_TRUE(comesTrue([reader] {
            auto const running = runningChildren("veldraw_reader");
            return std::find(running.begin(), running.end(), reader) == running.end();
        }));
    }).join();
}

// Another program writes the file bit by bit, so that the reader waits for the rest of it all the time.
TEST_F(RealReader, IsEndedByACancelInTheMiddleOfAFileThatDoesNotEnd)
{
    std::string const pipe = folder.path("slow.vtu");
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    std::thread([&] {
        auto const before = runningChildren("veldraw_reader");
        app::Descriptor writer;
        int written = 0;
        WatchedProgress cancelled([&](double) {
            if (!writer.isOpen())
                writer.reset(::open(pipe.c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC)); // as soon as somebody reads
            written += writer.isOpen() && ::write(writer.number(), "\n", 1) == 1 ? 1 : 0;
            return written < 5;
        });
        EXPECT_THROW(app::ReadingChild().read(requestFor(pipe), usualLimits, everything, cancelled),
                     kernel::Interrupted);
        EXPECT_EQ(written, 5);
        EXPECT_TRUE(comesTrue([&before] { return runningChildren("veldraw_reader") == before; }));
    }).join();
}

TEST_F(RealReader, TellsHowFarItHasCome)
{
    auto const grid = unstructuredGrid(200000, {{VTK_TETRA, {0, 1, 2, 3}}});
    addPointValues(*grid, "p", std::vector<double>(200000, 1.5));
    path = writeXml(*grid, folder.path("text.vtu"), Mode::Ascii);
    std::set<double> seen;
    WatchedProgress watched([&seen](double fraction) {
        seen.insert(fraction);
        return true;
    });
    watched.setTotal(1000000);
    read(everything, watched);
    EXPECT_GT(seen.size(), 4U);
    EXPECT_LE(*seen.rbegin(), 1.0);
}

// Each array once, and little besides; what the sanitizers do with memory is their own affair.
TEST_F(RealReader, TakesLittleMoreMemoryThanTheArrays)
{
    constexpr std::size_t points = 3000000;
    constexpr double bytesOfArrays = (3 * sizeof(float) + 2 * sizeof(double)) * static_cast<double>(points);
    auto const most = [](std::string const& file) {
        double peak = 0.0;
        auto const read = [&] {
            kernel::Progress unwatched;
            auto const before = runningChildren("veldraw_reader");
            auto const result = app::ReadingChild().read(requestFor(file), {1 << 30, 60, 60}, everything, unwatched);
            for (pid_t const child : runningChildren("veldraw_reader")) {
                if (std::find(before.begin(), before.end(), child) == before.end())
                    peak = peakMemoryOf(child);
            }
        };
        std::thread(read).join();
        return peak;
    };
    double const usual = most(path);
    ASSERT_GT(usual, 0.0);
    auto const grid = unstructuredGrid(static_cast<int>(points), {{VTK_TETRA, {0, 1, 2, 3}}});
    addPointValues(*grid, "p", std::vector<double>(points, 1.5));
    addPointValues(*grid, "q", std::vector<double>(points, 2.5));
    double const peak = most(writeXml(*grid, folder.path("large.vtu"), Mode::Raw));
#if defined(__SANITIZE_THREAD__)
    constexpr double mostExpansion = 8.0;
#elif defined(__SANITIZE_ADDRESS__)
    constexpr double mostExpansion = 4.0;
#else
    constexpr double mostExpansion = 1.3;
#endif
    EXPECT_GT(peak - usual, 0.9 * bytesOfArrays) << "shared memory counts";
    EXPECT_LT(peak - usual, mostExpansion * bytesOfArrays);
}

TEST_F(RealReader, MayBeKilledInTheMiddle)
{
    auto const killThenChoose = [](app::FoundArrays const& found) {
        for (pid_t const child : runningChildren("veldraw_reader"))
            ::kill(child, SIGKILL);
        return everything(found);
    };
    std::string problem;
    std::thread([&] { // which has no reader that would be replaced
        try {
            read(killThenChoose, progress);
        } catch (app::ImportError const& error) {
            problem = error.what();
        }
    })
        .join();
    EXPECT_EQ(problem, "it is damaged: the reader did not get through it");
    EXPECT_EQ(problemWith(path), "") << "the next one reads it";
}

TEST_F(RealReader, SaysThatOneArrayNeedsMoreMemory)
{
    std::string problem;
    std::thread([&] {
        try {
            read(everything, progress, {300000, 20, 60});
        } catch (app::ImportError const& error) {
            problem = error.what();
        }
    }).join();
    EXPECT_THAT(problem, HasSubstr("it needs more memory than the 0.0003 GB"));
}

TEST_F(RealReader, SaysThatItNeedsMoreMemory)
{
    std::string problem;
    std::thread([&] {
        try {
            read(everything, progress, {600000, 20, 60});
        } catch (app::ImportError const& error) {
            problem = error.what();
        }
    }).join();
    EXPECT_THAT(problem, HasSubstr("it needs more memory than the 0.0006 GB that its reader may take"));
}

} // namespace veldraw::tests

#include "app/import/child/ReadingChild.h"

#include "app/files/ImportError.h"
#include "tests/app/support/ChildProcesses.h"
#include "tests/app/support/FileHelpers.h"
#include "tests/app/support/GridSamples.h"
#include "tests/app/support/WatchedProgress.h"

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <thread>

namespace veldraw::tests {

using ::testing::AnyOf;
using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

namespace {

constexpr app::ReaderLimits usualLimits{1 << 30, 20, 60};

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
    for (char const* what : {"missing", "small", "open", "twice", "number", "nothing", "progress", "asks", "whole"})
        EXPECT_THAT(problemWithNonsense(what), StartsWith("it is damaged: what was read of it makes no sense")) << what;
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
    EXPECT_THAT(runningChildren("nonsense_reader"), IsEmpty());
}

TEST(ReadingChild, EndsAReaderThatWorksWithoutEnd)
{
    EXPECT_EQ(problemWithNonsense("works", {1 << 20, 1, 600}),
              "it is damaged: the reader did not come to an end with it");
    EXPECT_THAT(runningChildren("nonsense_reader"), IsEmpty());
}

TEST(ReadingChild, EndsItsReaderWhenTheUserCancels)
{
    int asked = 0;
    WatchedProgress progress([&asked](double) { return ++asked < 4; });
    EXPECT_THROW(app::ReadingChild(nonsenseReader()).read(requestFor("/sleeps"), usualLimits, everything, progress),
                 kernel::Interrupted);
    EXPECT_THAT(runningChildren("nonsense_reader"), IsEmpty());
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
    EXPECT_EQ(runningChildren("nonsense_reader"), kept) << "the other has ended with its thread";
    EXPECT_NE(problemWithNonsense("exits"), "");
    EXPECT_THAT(runningChildren("nonsense_reader"), IsEmpty());
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
        EXPECT_THAT(runningChildren("veldraw_reader"), Not(Contains(reader)));
    }).join();
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

#include "app/recovery/LeftWork.h"
#include "app/recovery/RecoveryReplay.h"
#include "tests/app/recovery/ScriptedWork.h"
#include "tests/app/support/FileHelpers.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <memory>
#include <poll.h>
#include <random>
#include <spawn.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

// A program that is killed at random moments while it works.

namespace veldraw::tests {

namespace {

using Clock = std::chrono::steady_clock;

constexpr int killCount = 100;
constexpr int atOnce = 6;
constexpr std::chrono::milliseconds longestLife{2000};
constexpr std::chrono::seconds mostLost{1};

/// A program that works until it is killed.
class Driver
{
public:
    Driver(std::string const& folder, std::string const& file, std::string const& secondFile, Clock::duration life)
        : m_folder(folder)
        , m_life(life)
    {
        std::filesystem::create_directory(folder);
        std::string program = std::filesystem::read_symlink("/proc/self/exe").parent_path() / "veldraw_recovery_driver";
        std::array<std::string, 5> words{program, recoveryFolder(), file, secondFile, folder};
        std::array<char*, 6> arguments{};
        std::transform(words.begin(), words.end(), arguments.begin(), [](std::string& word) { return word.data(); });
        int pipe[2] = {};
        EXPECT_EQ(0, ::pipe2(pipe, O_CLOEXEC));
        posix_spawn_file_actions_t actions;
        ::posix_spawn_file_actions_init(&actions);
        ::posix_spawn_file_actions_adddup2(&actions, pipe[1], STDOUT_FILENO);
        EXPECT_EQ(0, ::posix_spawn(&m_process, program.c_str(), &actions, nullptr, arguments.data(), environ));
        ::posix_spawn_file_actions_destroy(&actions);
        ::close(pipe[1]);
        m_pipe = pipe[0];
    }

    ~Driver() { ::close(m_pipe); }

    /// Whether it has worked as long as it is to. Its life begins when its first step is done, however long a program takes to start.
    bool isDue()
    {
        pollfd look{m_pipe, POLLIN, 0};
        if (!m_isWorking && ::poll(&look, 1, 0) == 1) {
            m_isWorking = true;
            m_end = Clock::now() + m_life;
        }
        return m_isWorking && Clock::now() >= m_end;
    }

    std::string recoveryFolder() const { return m_folder + "/recovery"; }

    void kill()
    {
        m_end = Clock::now();
        ASSERT_EQ(0, ::kill(m_process, SIGKILL));
        int status = 0;
        ASSERT_EQ(m_process, ::waitpid(m_process, &status, 0));
        ASSERT_TRUE(WIFSIGNALED(status)) << "it ended by itself";
        std::int64_t time = 0;
        while (::read(m_pipe, &time, sizeof time) == static_cast<ssize_t>(sizeof time))
            m_times.push_back(time);
    }

    /// How many steps had been done when it was killed, and some time before that.
    std::size_t doneAt(Clock::duration before) const
    {
        std::int64_t const moment = (m_end - before).time_since_epoch().count();
        auto const isDone = [moment](std::int64_t time) { return time <= moment; };
        return static_cast<std::size_t>(std::count_if(m_times.begin(), m_times.end(), isDone));
    }

    Driver(Driver const&) = delete;
    Driver& operator=(Driver const&) = delete;

private:
    std::string m_folder;
    Clock::duration m_life;
    Clock::time_point m_end;
    bool m_isWorking = false;
    pid_t m_process = 0;
    int m_pipe = -1;
    std::vector<std::int64_t> m_times; // of steps
};

/// The session after each step of the work.
struct State
{
    std::uint64_t digest = 0;
    bool isClean = true;
};

class RecoveryKeeperKilledTest : public ::testing::Test
{
protected:
    RecoveryKeeperKilledTest()
        : m_inMemory(useMemory())
    {
        for (std::string const& path : {file, secondFile})
            writeSampleFile(path);
        clear();
    }

    ~RecoveryKeeperKilledTest() override { clear(); }

    void clear()
    {
        session.clear();
        session.history().setClean();
    }

    void findStates()
    {
        std::filesystem::create_directory(folder.path("undisturbed"));
        states.push_back({digestOfSession(), true});
        for (std::string const& line : longWork(file, secondFile, folder.path("undisturbed"))) {
            work.run(line);
            states.push_back({digestOfSession(), session.history().isClean()});
        }
        clear();
    }

    std::unique_ptr<Driver> start(int number)
    {
        std::uniform_int_distribution<int> life(0, static_cast<int>(longestLife.count()));
        return std::make_unique<Driver>(folder.path(std::to_string(number)), file, secondFile,
                                        std::chrono::milliseconds(life(m_dice)));
    }

    /// Compares what is left with what was done.
    void check(Driver const& driver)
    {
        std::size_t const first = driver.doneAt(mostLost);
        std::size_t const last = std::min(driver.doneAt({}) + 1, states.size() - 1); // one may have been on its way
        auto const left = app::LeftWork::findAll(driver.recoveryFolder());
        ASSERT_LE(left.size(), 2u);
        bool const isWork = !left.empty();
        if (isWork) {
            ASSERT_FALSE(left.front()->content().isDamaged);
            app::ReplayOutcome const outcome = app::replay(left.front()->content().steps, session, work.files());
            ASSERT_TRUE(outcome.isWhole()) << outcome.command << ": " << outcome.reason;
        }
        std::uint64_t const digest = digestOfSession();
        auto const from = states.begin();
        auto const isReached = [&](State const& state) { return isWork ? state.digest == digest : state.isClean; };
        EXPECT_TRUE(std::any_of(from + static_cast<std::ptrdiff_t>(first), from + static_cast<std::ptrdiff_t>(last) + 1,
                                isReached))
            << (isWork ? "something else" : "nothing") << " was left of " << first << " to " << last << " steps";
        recovered += isWork ? 1 : 0;
        late += first > 0 ? 1 : 0;
        clear();
    }

    int recovered = 0; // work that was there
    int late = 0;      // kills more than a second after the first step
    std::vector<State> states;
    kernel::Session& session = kernel::Session::instance();
    ScriptedWork work;

private:
    // A disk in memory, where there is one: how quick a disk is, is not what is tried here.
    static bool useMemory() { return ::access("/dev/shm", W_OK) == 0 && ::setenv("TMPDIR", "/dev/shm", 1) == 0; }

    bool m_inMemory;
    std::mt19937 m_dice{std::random_device()()};

protected:
    TemporaryFolder folder;
    std::string const file = folder.path("a.vtm");
    std::string const secondFile = folder.path("b.vtm");
};

} // namespace

TEST_F(RecoveryKeeperKilledTest, LosesAtMostASecondOfWork)
{
    findStates();
    std::vector<std::unique_ptr<Driver>> running;
    int started = 0;
    for (int killed = 0; killed < killCount; ++killed) {
        while (static_cast<int>(running.size()) < atOnce && started < killCount)
            running.push_back(start(started++));
        auto next = running.end();
        while ((next = std::find_if(running.begin(), running.end(),
                                    [](auto const& driver) { return driver->isDue(); })) == running.end())
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        (*next)->kill();
        check(**next);
        running.erase(next);
    }
    EXPECT_GT(recovered, killCount / 4);
    EXPECT_GT(late, killCount / 10);
}

} // namespace veldraw::tests

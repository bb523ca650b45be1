#include "kernel/base/ThreadPool.h"

#include "kernel/base/Parallel.h"
#include "tests/support/ThreadFailure.h"
#include "tests/support/Threads.h"

#include <gtest/gtest.h>
#include <set>
#include <stdexcept>
#include <thread>
#include <vector>

namespace veldraw::tests {

using namespace kernel;

namespace {

/// How often each task is done in a loop over so many.
std::vector<int> timesDone(std::int64_t tasks)
{
    std::vector<std::atomic<int>> times(static_cast<std::size_t>(tasks));
    forEachInParallel(tasks, [&](std::int64_t task) { ++times[static_cast<std::size_t>(task)]; });
    return {times.begin(), times.end()};
}

/// The threads of a loop in which nobody goes on before there are so many.
std::set<std::thread::id> threadsOfLoop(std::int64_t count)
{
    std::mutex mutex;
    std::condition_variable arrived;
    std::set<std::thread::id> threads;
    forEachInParallel(count, [&](std::int64_t) {
        std::unique_lock<std::mutex> lock(mutex);
        threads.insert(std::this_thread::get_id());
        arrived.notify_all();
        arrived.wait(lock, [&] { return static_cast<std::int64_t>(threads.size()) == count; });
    });
    return threads;
}

} // namespace

TEST(ThreadPool, DoesEveryTaskOnce)
{
    for (int const threads : {1, 2, 7}) {
        Threads const some(threads);
        for (std::int64_t const tasks : {0, 1, 2, 5, 4099}) {
            EXPECT_EQ(timesDone(tasks), std::vector<int>(static_cast<std::size_t>(tasks), 1)) << threads << " threads";
        }
    }
}

TEST(ThreadPool, HasAsManyThreadsAtWorkAsThereAreToBe)
{
    Threads const five(5);
    EXPECT_EQ(threadsOfLoop(5).size(), 5U);
}

TEST(ThreadPool, MakesDoWithTheThreadsThatThereAre)
{
    std::int64_t const before = ThreadPool::instance().size();
    Threads const more(before + 4);
    {
        ThreadFailure const none;
        EXPECT_EQ(timesDone(4099), std::vector<int>(4099, 1));
        EXPECT_GT(none.refused(), 0);
        EXPECT_EQ(ThreadPool::instance().size(), before);
    }
    EXPECT_EQ(timesDone(4099), std::vector<int>(4099, 1));
    EXPECT_EQ(ThreadPool::instance().size(), before + 3) << "when there are some again";
}

TEST(ThreadPool, LeavesALoopWithinALoopToTheThreadThatRunsIt)
{
    Threads const three(3);
    std::atomic<int> elsewhere{0};
    forEachInParallel(7, [&](std::int64_t) {
        auto const outer = std::this_thread::get_id();
        forEachInParallel(5, [&](std::int64_t) { elsewhere += std::this_thread::get_id() == outer ? 0 : 1; });
    });
    EXPECT_EQ(elsewhere, 0);
}

TEST(ThreadPool, LetsALoopOfASingleTaskHaveLoopsOnAllThreads)
{
    Threads const two(2);
    forEachInParallel(1, [&](std::int64_t) { EXPECT_EQ(threadsOfLoop(2).size(), 2U); });
}

TEST(ThreadPool, ServesSeveralThreadsAtTheSameTime)
{
    Threads const three(3);
    std::atomic<std::int64_t> sum{0};
    std::vector<std::thread> users;
    for (int user = 0; user < 4; ++user) {
        users.emplace_back([&] {
            for (int loop = 0; loop < 500; ++loop) {
                forEachInParallel(9, [&](std::int64_t task) { sum += task; });
            }
        });
    }
    for (std::thread& user : users) {
        user.join();
    }
    EXPECT_EQ(sum, 4 * 500 * 36);
}

// Some of them come while the helpers look out for more, some when they sleep.
TEST(ThreadPool, LosesNoTaskInManyShortLoops)
{
    Threads const four(4);
    std::int64_t sum = 0;
    for (int loop = 0; loop < 3000; ++loop) {
        std::atomic<std::int64_t> part{0};
        forEachInParallel(4, [&](std::int64_t task) { part += task; });
        sum += part;
        if (loop % 300 == 0) {
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
        }
    }
    EXPECT_EQ(sum, 3000 * 6);
}

TEST(ThreadPool, IsReadyAgainAfterALoopThatThrows)
{
    Threads const three(3);
    for (int loop = 0; loop < 100; ++loop) {
        try {
            forEachInParallel(40, [&](std::int64_t task) {
                if (task % 10 == 7) {
                    throw std::runtime_error(std::to_string(task));
                }
            });
            ADD_FAILURE() << "nothing thrown";
        } catch (std::runtime_error const& error) {
            EXPECT_STREQ(error.what(), "7");
        }
    }
    EXPECT_EQ(threadsOfLoop(3).size(), 3U);
}

} // namespace veldraw::tests

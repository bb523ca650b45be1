#include "kernel/base/Parallel.h"

#include "kernel/base/ThreadPool.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <limits>
#include <mutex>
#include <thread>

namespace veldraw::kernel {

namespace {

constexpr std::int64_t smallestChunk = 64; // also keeps neighbouring chunks from sharing a byte of bits
constexpr std::int64_t mostChunks = 256;
constexpr std::int64_t floatsOfHugePage = std::int64_t{1} << 19; // as many doubles fill two
constexpr std::int64_t manyPages = 8;
constexpr std::int64_t valuesForAThread = 8192; // some microseconds

/// @p count is above 0.
std::int64_t chunkSize(std::int64_t count, std::int64_t grain)
{
    std::int64_t const even = (count + mostChunks - 1) / mostChunks;
    return (even + grain - 1) / grain * grain;
}

std::int64_t chunksOf(std::int64_t count, std::int64_t size)
{
    return (count + size - 1) / size;
}

std::atomic<std::int64_t>& countOfThreads()
{
    static std::atomic<std::int64_t> count{std::max(std::thread::hardware_concurrency(), 1U)};
    return count;
}

/// The exception of the task with the lowest number, so that it is the same one every time.
class LowestFailure
{
public:
    /// Whether a task is still to be done: one after a failure is not, while those before it may fail as well.
    bool isWanted(std::int64_t task) const { return task < m_task; }

    void note(std::int64_t task, std::exception_ptr const& failure)
    {
        std::lock_guard<std::mutex> const lock(m_mutex);
        if (task < m_task) {
            m_task = task;
            m_failure = failure;
        }
    }

    void rethrow() const
    {
        if (m_failure) {
            std::rethrow_exception(m_failure);
        }
    }

private:
    std::mutex m_mutex;
    std::atomic<std::int64_t> m_task{std::numeric_limits<std::int64_t>::max()};
    std::exception_ptr m_failure;
};

} // namespace

std::int64_t threadCount()
{
    return countOfThreads();
}

void setThreadCount(std::int64_t count)
{
    countOfThreads() = std::max<std::int64_t>(count, 1);
}

std::int64_t parallelChunkCount(std::int64_t count)
{
    return count <= 0 ? 0 : chunksOf(count, chunkSize(count, smallestChunk));
}

std::int64_t parallelChunkSize(std::int64_t count)
{
    return count <= 0 ? smallestChunk : chunkSize(count, smallestChunk);
}

std::int64_t grainOfFreshMemory(std::int64_t count)
{
    return count >= manyPages * floatsOfHugePage ? floatsOfHugePage : valuesForAThread;
}

void parallelFor(std::int64_t count, std::function<void(std::int64_t, std::int64_t, std::int64_t)> const& body,
                 std::int64_t grain)
{
    if (count <= 0) {
        return;
    }
    std::int64_t const size = chunkSize(count, grain);
    std::int64_t const chunks = chunksOf(count, size);
    forEachInParallel(chunks, [&](std::int64_t chunk) {
        std::int64_t const first = chunk * size;
        body(first, std::min(first + size, count), chunk);
    });
}

void forEachInParallel(std::int64_t count, std::function<void(std::int64_t)> const& body)
{
    if (count <= 0) {
        return;
    }
    if (count == 1) {
        body(0); // no other thread is to be woken, which may take longer than a little work; loops within may wake them
        return;
    }
    LowestFailure failure;
    std::atomic<std::int64_t> next{0};
    auto const workOnTasks = [&] {
        for (std::int64_t task = next++; task < count && failure.isWanted(task); task = next++) {
            try {
                body(task);
            } catch (...) {
                failure.note(task, std::current_exception());
            }
        }
    };
    // By reference, for which no memory is needed.
    ThreadPool::instance().run(std::min(threadCount(), count) - 1, std::ref(workOnTasks));
    failure.rethrow();
}

} // namespace veldraw::kernel

#pragma once

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <mutex>

namespace veldraw::kernel {

/// Threads that help others with their loops. Use it by the functions of Parallel.h.
///
/// A thread is started when the first loop wants it, and stays. Where the system gives no more of them, loops make do with those that there
/// are, down to the thread that runs the loop: nothing waits for help before it begins.
class ThreadPool
{
public:
    /// What there is for all of the process.
    static ThreadPool& instance();

    /// Calls @p work on this thread, and at the same time on as many as @p helpers others that are free. Each call is to return when nothing
    /// is left to do, and none may throw. Returns when all of them have ended. Within such a call nobody else helps.
    void run(std::int64_t helpers, std::function<void()> const& work);

    /// Has loops of the calling thread run on it alone while it exists.
    class Alone
    {
    public:
        Alone();
        ~Alone();
        Alone(Alone const&) = delete;
        Alone& operator=(Alone const&) = delete;

    private:
        bool m_before;
    };

    /// Number of threads that have been started. For tests.
    std::int64_t size();

    ThreadPool(ThreadPool const&) = delete;
    ThreadPool& operator=(ThreadPool const&) = delete;

private:
    struct Loop;

    ThreadPool() = default;
    void offer(Loop& loop);
    void withdraw(Loop& loop);
    void startThreads(std::int64_t wanted) noexcept;
    [[noreturn]] void serve();
    Loop* loopToHelp();
    void help(Loop& loop, std::unique_lock<std::mutex>& lock);
    void sleep(std::unique_lock<std::mutex>& lock);

    std::mutex m_mutex;
    std::condition_variable m_offered;
    std::condition_variable m_left;
    Loop* m_first = nullptr; // of those that somebody may still help with
    std::int64_t m_threads = 0;
    std::int64_t m_asleep = 0;
    std::atomic<std::uint64_t> m_offers{0};
};

} // namespace veldraw::kernel

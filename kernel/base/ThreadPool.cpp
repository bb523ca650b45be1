#include "kernel/base/ThreadPool.h"

#include <algorithm>
#include <exception>
#include <thread>

namespace veldraw::kernel {

namespace {

// A thread that sleeps needs some 50 microseconds to wake, as long as it looks out for a while: many loops follow closely on each other.
constexpr int looksBeforeSleep = 2000;

thread_local bool isAlone = false;

void relax()
{
#if defined(__x86_64__) || defined(__i386__)
    __builtin_ia32_pause();
#else
    std::this_thread::yield();
#endif
}

/// Looks for a moment. @return whether it has come true
template <typename Condition>
bool seesSoon(Condition const& condition)
{
    for (int look = 0; look < looksBeforeSleep; ++look) {
        if (condition()) {
            return true;
        }
        relax();
    }
    return false;
}

} // namespace

/// A loop that runs, on the stack of the thread that runs it.
struct ThreadPool::Loop
{
    std::function<void()> const& work;
    std::int64_t wanted; ///< helpers that may still come
    std::atomic<std::int64_t> helpers{0};
    Loop* next = nullptr;
};

ThreadPool::Alone::Alone()
    : m_before(isAlone)
{
    isAlone = true;
}

ThreadPool::Alone::~Alone()
{
    isAlone = m_before;
}

ThreadPool& ThreadPool::instance()
{
    static auto* const pool = new ThreadPool; // never destroyed: its threads run until the process ends
    return *pool;
}

void ThreadPool::run(std::int64_t helpers, std::function<void()> const& work)
{
    if (helpers <= 0 || isAlone) {
        work();
        return;
    }
    Alone const alone;
    Loop loop{work, helpers};
    offer(loop);
    work();
    withdraw(loop);
}

void ThreadPool::offer(Loop& loop)
{
    std::int64_t toWake = 0;
    {
        std::lock_guard<std::mutex> const lock(m_mutex);
        startThreads(loop.wanted);
        toWake = std::min(loop.wanted, m_asleep);
        loop.next = m_first;
        m_first = &loop;
        ++m_offers;
    }
    for (; toWake > 0; --toWake) {
        m_offered.notify_one();
    }
}

void ThreadPool::withdraw(Loop& loop)
{
    {
        std::lock_guard<std::mutex> const lock(m_mutex);
        Loop** place = &m_first;
        while (*place != &loop) {
            place = &(*place)->next;
        }
        *place = loop.next;
    }
    auto const isLeft = [&loop] { return loop.helpers == 0; };
    if (!seesSoon(isLeft)) {
        std::unique_lock<std::mutex> lock(m_mutex);
        m_left.wait(lock, isLeft);
    }
}

/// With the mutex held.
void ThreadPool::startThreads(std::int64_t wanted) noexcept
{
    try {
        for (; m_threads < wanted; ++m_threads) {
            std::thread([this] { serve(); }).detach();
        }
    } catch (std::exception const&) {
        return; // no more of them, or no memory for one: those that there are do the work
    }
}

void ThreadPool::serve()
{
    Alone const alone;
    std::unique_lock<std::mutex> lock(m_mutex);
    for (;;) {
        if (Loop* const loop = loopToHelp()) {
            help(*loop, lock);
        } else {
            sleep(lock);
        }
    }
}

ThreadPool::Loop* ThreadPool::loopToHelp()
{
    Loop* loop = m_first;
    while (loop != nullptr && loop->wanted == 0) {
        loop = loop->next;
    }
    return loop;
}

void ThreadPool::help(Loop& loop, std::unique_lock<std::mutex>& lock)
{
    --loop.wanted;
    ++loop.helpers;
    lock.unlock();
    loop.work();
    lock.lock();
    if (--loop.helpers == 0) { // from here on the loop may be gone
        m_left.notify_all();
    }
}

void ThreadPool::sleep(std::unique_lock<std::mutex>& lock)
{
    std::uint64_t const known = m_offers;
    lock.unlock();
    seesSoon([&] { return m_offers != known; });
    lock.lock();
    ++m_asleep;
    m_offered.wait(lock, [&] { return m_offers != known; });
    --m_asleep;
}

std::int64_t ThreadPool::size()
{
    std::lock_guard<std::mutex> const lock(m_mutex);
    return m_threads;
}

} // namespace veldraw::kernel

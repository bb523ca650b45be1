#include "tests/support/EventLoopWatchdog.h"

#include <QAbstractEventDispatcher>
#include <QThread>

#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>
#include <pthread.h>
#include <time.h>

namespace veldraw::tests {

namespace {

#ifdef __SANITIZE_ADDRESS__
constexpr std::chrono::seconds usualPatience(20);
#else
constexpr std::chrono::seconds usualPatience(5);
#endif
constexpr std::chrono::milliseconds lookInterval(50);

EventLoopWatchdog* theWatchdog = nullptr;

std::chrono::nanoseconds timeOf(clockid_t clock)
{
    timespec time{};
    clock_gettime(clock, &time);
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

[[noreturn]] void endProgram(std::chrono::milliseconds patience)
{
    testing::TestInfo const* const test = testing::UnitTest::GetInstance()->current_test_info();
    std::fprintf(stderr, "%s.%s has not returned to its event loop for %lld ms of processor time\n",
                 test ? test->test_suite_name() : "no test", test ? test->name() : "",
                 static_cast<long long>(patience.count()));
    std::abort();
}

} // namespace

EventLoopWatchdog::EventLoopWatchdog()
    : m_patience(usualPatience)
{
    pthread_getcpuclockid(pthread_self(), &m_clock);
    QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake, [this] { ++m_turns; });
    m_thread = std::thread([this] { watch(); });
    theWatchdog = this;
}

EventLoopWatchdog::~EventLoopWatchdog()
{
    theWatchdog = nullptr;
    m_isOver = true;
    m_thread.join();
}

EventLoopWatchdog* EventLoopWatchdog::instance()
{
    return theWatchdog;
}

void EventLoopWatchdog::watch()
{
    std::chrono::nanoseconds begin = timeOf(m_clock);
    int turns = m_turns;
    int deliveries = m_deliveries;
    while (!m_isOver) {
        std::this_thread::sleep_for(lookInterval);
        std::chrono::nanoseconds const now = timeOf(m_clock);
        bool const hasTurned = turns != m_turns;
        bool const delivers = m_depth > 0 || deliveries != m_deliveries;
        turns = m_turns;
        deliveries = m_deliveries;
        if (hasTurned || !delivers)
            begin = now;
        else if (now - begin > m_patience.load())
            endProgram(m_patience);
    }
}

EventLoopWatchdog::Delivery::Delivery(QEvent const& event)
    : m_watchdog(QThread::currentThread() == qApp->thread() ? theWatchdog : nullptr)
{
    if (!m_watchdog)
        return;
    if (event.spontaneous() && m_watchdog->m_depth == 0)
        ++m_watchdog->m_turns;
    ++m_watchdog->m_deliveries;
    ++m_watchdog->m_depth;
}

EventLoopWatchdog::Delivery::~Delivery()
{
    if (m_watchdog)
        --m_watchdog->m_depth;
}

bool WatchedApplication::notify(QObject* receiver, QEvent* event)
{
    EventLoopWatchdog::Delivery const delivery(*event);
    try {
        return QApplication::notify(receiver, event);
    } catch (std::exception const& failure) {
        if (!m_handler)
            throw;
        m_handler(failure);
        return true;
    }
}

} // namespace veldraw::tests

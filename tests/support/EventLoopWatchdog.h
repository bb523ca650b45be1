#pragma once

#include <QApplication>

#include <atomic>
#include <chrono>
#include <exception>
#include <functional>
#include <thread>

namespace veldraw::tests {

/// Ends the program, with the name of the test, when the delivery of events does not return to the event loop: a window that never comes
/// to rest, such as one whose layout changes what it is laid out for.
///
/// What counts is the processor time of the user-interface thread, so that a busy machine alarms nobody. It counts from the last turn of an
/// event loop, or the last input by a test, and only while events are delivered: a test may compute as long as it wants.
class EventLoopWatchdog
{
public:
    /// Watches the thread that makes it, which has an application.
    EventLoopWatchdog();
    ~EventLoopWatchdog();

    /// Null when there is none.
    static EventLoopWatchdog* instance();

    /// Five seconds at first, with sanitizers four times as long.
    void setPatience(std::chrono::milliseconds ofProcessorTime) { m_patience = ofProcessorTime; }

    EventLoopWatchdog(EventLoopWatchdog const&) = delete;
    EventLoopWatchdog& operator=(EventLoopWatchdog const&) = delete;

    /// Notes for a scope that an event is delivered.
    class Delivery
    {
    public:
        explicit Delivery(QEvent const& event);
        ~Delivery();
        Delivery(Delivery const&) = delete;
        Delivery& operator=(Delivery const&) = delete;

    private:
        EventLoopWatchdog* m_watchdog;
    };

private:
    void watch();

    std::atomic<std::chrono::milliseconds> m_patience;
    std::atomic<int> m_turns{0};      // of an event loop, and inputs
    std::atomic<int> m_deliveries{0}; // that have begun
    std::atomic<int> m_depth{0};      // of the one that goes on
    std::atomic<bool> m_isOver{false};
    clockid_t m_clock{};
    std::thread m_thread;
};

/// An application under a watchdog.
class WatchedApplication : public QApplication
{
public:
    using QApplication::QApplication;

    bool notify(QObject* receiver, QEvent* event) override;

    /// Has the exceptions of receivers told to @p handler and go no further, as an application may; empty, as at first, lets them through.
    void setExceptionHandler(std::function<void(std::exception const&)> handler) { m_handler = std::move(handler); }

private:
    std::function<void(std::exception const&)> m_handler;
};

} // namespace veldraw::tests

#pragma once

#include <QPointer>
#include <QTimer>

#include <boost/shared_ptr.hpp>

#include <deque>

namespace veldraw::sdk::ui::common {

class IdleAction;

/// Actions that wait for the event loop to be idle, first in, first out.
///
/// Idle is one single-shot timer of 0 ms, started when the queue becomes non-empty: a repeating one would keep a
/// processor busy. The queue makes no timer before there is an application, and is never destroyed, so that objects of
/// static lifetime may use it whenever they come and go.
class IdleQueue
{
public:
    static IdleQueue& instance();

    /// Appends the action unless it waits already.
    void schedule(boost::shared_ptr<IdleAction> const& action);

    /// Runs what waits now; what is scheduled meanwhile stays. @return false when nothing waits, or idle is held back
    bool runRound();

    /// Number of actions that wait and have not been cancelled.
    int pendingCount() const;

    /// Holds idle back until as many calls of release().
    void hold();
    void release();

    /// Whether idle is held back, by hold() or by an AppLock.
    bool isHeld() const;

    /// Starts the timer when something waits and may run. Objects that go away call it.
    void arm() noexcept;

    IdleQueue(IdleQueue const&) = delete;
    IdleQueue& operator=(IdleQueue const&) = delete;

private:
    IdleQueue() = default;
    ~IdleQueue() = default;
    void runFront();
    void makeTimer();

    struct Entry
    {
        boost::shared_ptr<IdleAction> action;
        unsigned long long number; // tells a round's entries from later ones, also when rounds nest
    };
    std::deque<Entry> m_entries;
    unsigned long long m_nextNumber = 0;
    int m_holds = 0;
    QPointer<QTimer> m_timer; // the application's child: it ends with the application
};

} // namespace veldraw::sdk::ui::common

#pragma once

#include <boost/function.hpp>

namespace veldraw::sdk::ui::common {

/// An action that can wait for idle. Its performer and the queue share it, so that either may go first.
class IdleAction
{
public:
    explicit IdleAction(boost::function<void()> action);

    /// Runs the action unless it was cancelled. What it throws is told to the user, with the kernel's reason if there is
    /// one, and goes no further; an exception without a text is silent.
    void run();

    /// The action will not run any more; it is destroyed at once, or when it returns.
    void cancel();

    bool isCancelled() const { return m_cancelled; }
    bool isWaiting() const { return m_waiting; }
    void setWaiting(bool waiting) { m_waiting = waiting; }

private:
    void runAndTell();

    boost::function<void()> m_action;
    int m_running = 0; // a nested event loop may bring the action into itself
    bool m_waiting = false;
    bool m_cancelled = false;
};

} // namespace veldraw::sdk::ui::common

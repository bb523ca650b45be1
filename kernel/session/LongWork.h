#pragma once

#include "kernel/base/BackgroundWork.h"

#include <atomic>
#include <mutex>

namespace veldraw::kernel {

/// Runs computations, one at a time, and knows of the user's cancel.
class LongWork
{
public:
    /// What waits while a computation runs; null (as at first) for nothing but the wait itself. Not owned: to be taken
    /// back before it goes.
    void setWaiter(Waiter* waiter) { m_waiter = waiter; }

    /// Whether a computation runs. Ask on the user-interface thread.
    bool isBusy() const { return m_isBusy; }

    /// Set by the user's cancel, taken back when the next computation starts. May be asked for and set on any thread; setting
    /// it interrupts the computation that is running.
    bool isInterrupted() const { return m_isInterrupted; }
    void setInterrupted(bool interrupted);

    /// Runs @p work to its end: on a thread of its own if there is a waiter, which waits for it here.
    /// @param name of the operation, as in the undo menu
    /// @throws what the work throws, Interrupted when the user has cancelled; std::logic_error while another one runs
    void run(std::string const& name, std::function<void(Progress&)> const& work);

private:
    class BusyScope;

    std::atomic<bool> m_isInterrupted{false};
    Waiter* m_waiter = nullptr;
    bool m_isBusy = false;
    std::mutex m_progressMutex;
    Progress* m_progress = nullptr; // of the computation that is running
};

} // namespace veldraw::kernel

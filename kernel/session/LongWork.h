#pragma once

#include "kernel/base/BackgroundWork.h"

#include <atomic>
#include <mutex>

namespace veldraw::kernel {

/// Runs computations, one at a time, and lets the user cancel them.
class LongWork
{
public:
    /// Sets what waits while a computation runs; with null (as at first) work runs on the calling thread. Not owned: set null
    /// before the waiter is destroyed.
    void setWaiter(Waiter* waiter) { m_waiter = waiter; }

    /// Whether a computation runs. Ask on the user-interface thread.
    bool isBusy() const { return m_isBusy; }

    /// Whether the user has cancelled; false again when the next computation starts. Setting it interrupts the computation
    /// that is running. Both may be called on any thread.
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

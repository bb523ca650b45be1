#pragma once

#include "kernel/base/BackgroundWork.h"

#include <chrono>

/// Cancels what it waits for after a while, and remembers when.
class CancellingWaiter : public veldraw::kernel::Waiter
{
public:
    using Clock = std::chrono::steady_clock;
    using Seconds = std::chrono::duration<double>;

    void setDelay(Seconds delay) { m_delay = delay; }

    /// Time since the last cancel.
    Seconds sinceCancel() const { return Clock::now() - m_cancelledAt; }

    void wait(std::string const&, veldraw::kernel::Progress& progress, std::shared_future<void> const& work) override
    {
        work.wait_for(m_delay);
        m_cancelledAt = Clock::now();
        progress.interrupt();
        work.wait();
    }

private:
    Seconds m_delay{};
    Clock::time_point m_cancelledAt;
};

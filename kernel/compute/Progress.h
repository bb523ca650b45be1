#pragma once

#include <atomic>
#include <cstdint>

namespace veldraw::kernel {

/// How far a long operation has come, and whether the user wants it to end. Worker threads count up, the waiter reads and
/// interrupts; every member may be called on any thread.
class Progress
{
public:
    /// Tells the work that there will be, in any unit. To be called before the first advance().
    void setTotal(std::int64_t total) { m_total = total; }

    /// Counts @p done more units as done.
    void advance(std::int64_t done) { m_done += done; }

    /// Units that have been counted as done.
    std::int64_t done() const { return m_done; }

    /// From 0 to 1; 0 while the total is not known.
    double fraction() const;

    /// Asks the operation to end without a result.
    void interrupt() { m_interrupted = true; }
    bool isInterrupted() const { return m_interrupted; }

    /// To be called by the workers often enough that a cancel is felt within 100 ms.
    /// @throws Interrupted when the operation is to end
    void check() const;

private:
    std::atomic<std::int64_t> m_total{0};
    std::atomic<std::int64_t> m_done{0};
    std::atomic<bool> m_interrupted{false};
};

} // namespace veldraw::kernel

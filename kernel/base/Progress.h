#pragma once

#include <atomic>
#include <cstdint>
#include <exception>

namespace veldraw::kernel {

/// Thrown to end an operation that the user has cancelled. No C function of the kernel lets it out.
class Interrupted : public std::exception
{
public:
    char const* what() const noexcept override { return "The operation was cancelled."; }
};

/// How much of a long operation is done, and whether the user has cancelled it. Worker threads count up, the waiter reads and
/// interrupts; every member may be called on any thread.
///
///     progress.setTotal(count);
///     for (...) {
///         progress.check();     // throws Interrupted after a cancel
///         ...
///         progress.advance(512);
///     }
class Progress
{
public:
    Progress() = default;

    /// The progress of a part of @p whole. It advances the whole by @p units altogether, is interrupted with it, and counts
    /// as done when it is destroyed.
    /// @param units of the whole; also the total of the part until setTotal() is called
    Progress(Progress& whole, std::int64_t units);

    virtual ~Progress();
    Progress(Progress const&) = delete;
    Progress& operator=(Progress const&) = delete;

    /// Sets the amount of work, in any unit. To be called before the first advance().
    void setTotal(std::int64_t total) { m_total = total; }
    std::int64_t total() const { return m_total; }

    /// Counts @p done more units as done.
    void advance(std::int64_t done);

    /// Advances to a fraction of the total, and never back. For work on one thread that knows its fraction only.
    /// @param fraction from 0 to 1
    void reach(double fraction);

    /// Units that have been counted as done.
    std::int64_t done() const { return m_done; }

    /// From 0 to 1; 0 while the total is not known.
    double fraction() const;

    /// Asks the operation to end without a result.
    void interrupt() { m_interrupted = true; }
    virtual bool isInterrupted() const;

    /// To be called by the workers at least every 100 ms, so that a cancel takes effect quickly.
    /// @throws Interrupted when the operation is to end
    void check() const;

private:
    std::int64_t ofWhole(std::int64_t done) const;

    Progress* m_whole = nullptr;
    std::int64_t m_units = 0; // of the whole
    std::atomic<std::int64_t> m_total{0};
    std::atomic<std::int64_t> m_done{0};
    std::atomic<bool> m_interrupted{false};
};

} // namespace veldraw::kernel

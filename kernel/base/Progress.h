#pragma once

#include <atomic>
#include <cstdint>
#include <exception>

namespace veldraw::kernel {

/// Ends an operation that the user has cancelled. It never leaves the kernel's C functions.
class Interrupted : public std::exception
{
public:
    char const* what() const noexcept override { return "The operation was cancelled."; }
};

/// How far a long operation has come, and whether the user wants it to end. Worker threads count up, the waiter reads and
/// interrupts; every member may be called on any thread.
class Progress
{
public:
    Progress() = default;

    /// Stands for a part of @p whole, which it moves on by @p units in all and which interrupts it. When its life ends, the part
    /// counts as done.
    /// @param units of the whole; the part has the same ones until it is told another total
    Progress(Progress& whole, std::int64_t units);

    virtual ~Progress();
    Progress(Progress const&) = delete;
    Progress& operator=(Progress const&) = delete;

    /// Tells the work that there will be, in any unit. To be called before the first advance().
    void setTotal(std::int64_t total) { m_total = total; }
    std::int64_t total() const { return m_total; }

    /// Counts @p done more units as done.
    void advance(std::int64_t done);

    /// Counts what is missing to this fraction of the total: for work on one thread that only knows how far it has come. It never
    /// goes back.
    /// @param fraction from 0 to 1
    void reach(double fraction);

    /// Units that have been counted as done.
    std::int64_t done() const { return m_done; }

    /// From 0 to 1; 0 while the total is not known.
    double fraction() const;

    /// Asks the operation to end without a result.
    void interrupt() { m_interrupted = true; }
    virtual bool isInterrupted() const;

    /// To be called by the workers often enough that a cancel is felt within 100 ms.
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

#pragma once

#include "kernel/base/Progress.h"

#include <cstddef>
#include <exception>
#include <mutex>

namespace veldraw::kernel {

/// Lets work on several threads end together as soon as some of it fails, and tells why it failed:
///
///     CommonEnd end(progress, units);
///     end.tell([&] {
///         forEachInParallel(count, [&](std::int64_t at) { end.join(at, [&] { work(at, end.progress()); }); });
///     });
///
/// A failure interrupts the progress that the work has in common. So another piece that has already got as far as this progress ends there,
/// and one that still looks at another progress goes on and may fail for a reason of its own. The one of the lowest place is told.
class CommonEnd
{
public:
    /// @param units by which the common progress advances @p whole
    CommonEnd(Progress& whole, std::int64_t units)
        : m_common(whole, units)
    {
    }

    Progress& progress() { return m_common; }

    /// Runs a piece of the work, on any thread, and lets its exceptions through. @param place in the order of the work
    template <typename Work>
    void join(std::size_t place, Work const& work)
    {
        try {
            work();
        } catch (Interrupted const&) {
            throw;
        } catch (...) {
            note(place, std::current_exception());
            throw;
        }
    }

    /// Runs the work with all its pieces. @throws what the failed piece of the lowest place has thrown, or Interrupted
    template <typename Work>
    void tell(Work const& work)
    {
        try {
            work();
        } catch (...) {
            if (m_failure) {
                std::rethrow_exception(m_failure);
            }
            throw;
        }
    }

private:
    void note(std::size_t place, std::exception_ptr const& failure) noexcept
    {
        std::lock_guard<std::mutex> const lock(m_mutex);
        if (!m_failure || place < m_place) {
            m_failure = failure;
            m_place = place;
        }
        m_common.interrupt();
    }

    Progress m_common;
    std::mutex m_mutex;
    std::exception_ptr m_failure;
    std::size_t m_place = 0;
};

} // namespace veldraw::kernel

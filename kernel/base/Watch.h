#pragma once

#include "kernel/base/Progress.h"

#include <algorithm>
#include <functional>

namespace veldraw::kernel {

/// Looks for a cancel now and then, in work of which nobody knows how many steps a part of it takes: a point may have ten
/// million edges. Each thread has its own.
class Watch
{
public:
    /// @param progress lives as long as the object
    explicit Watch(Progress const& progress)
        : m_progress(progress)
    {
    }

    /// To be called for each step, of less than a hundred microseconds, or for several that have been done or are next.
    /// @throws Interrupted
    void count(std::int64_t steps = 1)
    {
        m_left -= steps;
        if (m_left <= 0) {
            m_left = most;
            m_progress.check();
        }
    }

private:
    static constexpr std::int64_t most = 256;

    Progress const& m_progress;
    std::int64_t m_left = most;
};

/// Sorts plain things as std::sort() does, and looks for a cancel meanwhile if there are many.
/// @throws Interrupted, in whatever order they are then
template <typename Iterator, typename Less = std::less<>>
void sortWatched(Iterator begin, Iterator end, Watch& watch, Less const& isLess = {})
{
    constexpr std::int64_t few = 1024; // sorted in some ten microseconds
    if (end - begin <= few) {
        watch.count(end - begin);
        std::sort(begin, end, isLess);
        return;
    }
    std::sort(begin, end, [&](auto const& left, auto const& right) {
        watch.count();
        return isLess(left, right);
    });
}

} // namespace veldraw::kernel

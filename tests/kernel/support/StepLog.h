#pragma once

#include "kernel/base/Progress.h"

#include <algorithm>
#include <mutex>
#include <set>

namespace veldraw::tests {

/// Notes how much is done at each look for a cancel.
class StepLog : public kernel::Progress
{
public:
    bool isInterrupted() const override
    {
        std::lock_guard<std::mutex> const lock(m_mutex);
        m_fractions.insert(fraction());
        return Progress::isInterrupted();
    }

    /// The most that was done from one look to the next, as a part of all, up to its end.
    double largestStep() const
    {
        double largest = 0.0;
        double before = 0.0;
        for (double const fraction : m_fractions) {
            largest = std::max(largest, fraction - before);
            before = fraction;
        }
        return std::max(largest, 1.0 - before);
    }

private:
    mutable std::mutex m_mutex;
    mutable std::set<double> m_fractions;
};

} // namespace veldraw::tests

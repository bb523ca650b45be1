#pragma once

#include "kernel/base/Progress.h"

#include <atomic>
#include <cstdint>

namespace veldraw::tests {

/// Counts how often an operation looks for a cancel, and cancels it at one of these looks.
class LookCounter : public kernel::Progress
{
public:
    /// @param last the look that is answered with a cancel; 0 for none
    explicit LookCounter(std::int64_t last = 0)
        : m_last(last)
    {
    }

    bool isInterrupted() const override { return ++m_looks == m_last || Progress::isInterrupted(); }

    std::int64_t looks() const { return m_looks; }

private:
    std::int64_t m_last;
    mutable std::atomic<std::int64_t> m_looks{0};
};

} // namespace veldraw::tests

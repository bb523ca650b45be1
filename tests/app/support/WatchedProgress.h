#pragma once

#include "kernel/base/Progress.h"

#include <functional>

namespace veldraw::tests {

/// Is told how far the work has come whenever that asks whether it is to go on; the answer false ends it.
class WatchedProgress : public kernel::Progress
{
public:
    explicit WatchedProgress(std::function<bool(double)> asked)
        : m_asked(std::move(asked))
    {
    }

    bool isInterrupted() const override { return !m_asked(fraction()); }

private:
    std::function<bool(double)> m_asked;
};

/// One that ends the work as soon as it asks.
class InterruptedProgress : public kernel::Progress
{
public:
    InterruptedProgress() { interrupt(); }
};

} // namespace veldraw::tests

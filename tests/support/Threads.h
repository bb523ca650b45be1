#pragma once

#include "kernel/base/Parallel.h"
#include "kernel/base/ThreadPool.h"

namespace veldraw::tests {

/// Lets the loops of the kernel run on so many threads while it exists.
class Threads
{
public:
    explicit Threads(std::int64_t count)
        : m_usual(kernel::threadCount())
    {
        kernel::setThreadCount(count);
    }
    ~Threads() { kernel::setThreadCount(m_usual); }
    Threads(Threads const&) = delete;
    Threads& operator=(Threads const&) = delete;

private:
    std::int64_t m_usual;
};

/// Runs work that divides itself for two threads on this one alone, piece by piece in the same order each time.
template <typename Work>
void runDividedOnOneThread(Work const& work)
{
    Threads const two(2);
    kernel::ThreadPool::Alone const alone;
    work();
}

} // namespace veldraw::tests

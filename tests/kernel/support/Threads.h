#pragma once

#include <omp.h>

namespace veldraw::tests {

/// Lets the loops of the kernel run on so many threads while it exists.
class Threads
{
public:
    explicit Threads(int count)
        : m_usual(omp_get_max_threads())
    {
        omp_set_num_threads(count);
    }
    ~Threads() { omp_set_num_threads(m_usual); }
    Threads(Threads const&) = delete;
    Threads& operator=(Threads const&) = delete;

private:
    int m_usual;
};

/// Runs work that divides itself for two threads on this one alone, piece by piece in the same order each time.
template <typename Work>
void runDividedOnOneThread(Work const& work)
{
    Threads const two(2);
#pragma omp parallel num_threads(2)
    {
#pragma omp master
        work(); // a loop within a loop on all threads starts no others
    }
}

} // namespace veldraw::tests

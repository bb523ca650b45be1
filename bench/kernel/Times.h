#pragma once

#include <algorithm>
#include <chrono>
#include <ctime>

/// The least times that a function has taken: by the clock, and of the processor with all threads, which is hardly longer while
/// other programs run.
struct Times
{
    double clock = 1e300;
    double processor = 1e300;

    template <typename Function>
    void measure(Function const& function)
    {
        auto const start = std::chrono::steady_clock::now();
        double const startOfProcessor = processorSeconds();
        function();
        clock = std::min(clock, std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
        processor = std::min(processor, processorSeconds() - startOfProcessor);
    }

private:
    static double processorSeconds() { return static_cast<double>(std::clock()) / CLOCKS_PER_SEC; }
};

#pragma once

#include <atomic>

namespace veldraw::kernel {

/// Makes the greater one of a value and the highest known so far the highest. Threads may call this at a time.
template <typename Number>
void raiseTo(Number value, std::atomic<Number>& highest)
{
    Number known = highest.load(std::memory_order_relaxed);
    while (value > known && !highest.compare_exchange_weak(known, value, std::memory_order_relaxed)) {
    }
}

} // namespace veldraw::kernel

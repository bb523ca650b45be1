#pragma once

#include <cstddef>

namespace veldraw::tests {

/// How often this thread has asked `operator new` for memory so far. Every allocation of the test program counts.
std::size_t allocationCount();

} // namespace veldraw::tests

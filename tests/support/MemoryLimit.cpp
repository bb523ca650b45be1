#include "tests/support/MemoryLimit.h"

#include "kernel/base/SystemMemory.h"

#include <atomic>
#include <cmath>
#include <dlfcn.h>

namespace {

std::atomic<double> memoryLimit{-1.0}; // negative: none

} // namespace

/// Stands in front of the kernel's function of this name, which it asks while there is no limit.
double veldraw::kernel::availableMemory()
{
    static auto const ofKernel =
        reinterpret_cast<double (*)()>(dlsym(RTLD_NEXT, "_ZN7veldraw6kernel15availableMemoryEv"));
    double const bytes = memoryLimit;
    return bytes < 0.0 ? ofKernel() : bytes;
}

namespace veldraw::tests {

MemoryLimit::MemoryLimit(double bytes)
{
    memoryLimit = bytes;
}

MemoryLimit::~MemoryLimit()
{
    memoryLimit = -1.0;
}

double leastMemory(std::function<bool()> const& isDone, double most)
{
    double tooLittle = -1;
    double enough = most;
    while (enough - tooLittle > 1) {
        double const middle = std::floor((tooLittle + enough) / 2);
        MemoryLimit const tried(middle);
        (isDone() ? enough : tooLittle) = middle;
    }
    return enough;
}

} // namespace veldraw::tests

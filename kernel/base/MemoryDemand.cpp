#include "kernel/base/MemoryDemand.h"

#include <cstdio>
#include <limits>
#include <memory>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace veldraw::kernel {

double availableMemory()
{
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> const file(std::fopen("/proc/meminfo", "r"), &std::fclose);
    double kibibytes = 0;
    bool isKnown = false;
    char line[128];
    while (file && std::fgets(line, sizeof line, file.get()) != nullptr) {
        double amount = 0;
        if (std::sscanf(line, "MemAvailable: %lf", &amount) == 1 || std::sscanf(line, "SwapFree: %lf", &amount) == 1) {
            kibibytes += amount;
            isKnown = true;
        }
    }
    return isKnown ? kibibytes * 1024 : std::numeric_limits<double>::infinity();
}

void requireMemory(double bytes, double available)
{
    if (bytes > available) {
        throw NotEnoughMemory(bytes - available);
    }
}

void returnFreedMemory() noexcept
{
#ifdef __GLIBC__
    malloc_trim(0);
#endif
}

} // namespace veldraw::kernel

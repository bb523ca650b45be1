#pragma once

#include "kernel/base/SystemMemory.h"

#include <fstream>
#include <string>

/// Bytes of the process: "VmRSS:" now, or "VmHWM:" at most since the peak was forgotten.
inline double bytesOfProcess(std::string const& which)
{
    std::ifstream file("/proc/self/status");
    std::string word;
    double kibibytes = 0;
    while (file >> word && word != which) {
    }
    file >> kibibytes;
    return 1024 * kibibytes;
}

/// The most bytes that @p work takes at a time beyond those that the process has.
template <typename Work>
double peakBytes(Work const& work)
{
    veldraw::kernel::returnFreedMemory();
    std::ofstream("/proc/self/clear_refs") << "5"; // forgets the peak
    double const before = bytesOfProcess("VmRSS:");
    work();
    return bytesOfProcess("VmHWM:") - before;
}

#include "app/files/SizeCheck.h"

#include "app/files/ImportError.h"

#include <cmath>
#include <cstdio>
#include <fstream>
#include <limits>

namespace veldraw::app {

namespace {

constexpr double mostValuesPerByte = 8.0; // bits
constexpr double mostExpansion = 1100.0;  // deflate does not get beyond 1032
constexpr double mostOfMemory = 0.8;      // some is left for everybody else

std::string gigabytes(double bytes)
{
    char text[40];
    std::snprintf(text, sizeof text, "%.3g GB", bytes / 1e9);
    return text;
}

} // namespace

SizeCheck::SizeCheck(std::int64_t fileSize, bool compressed)
    : m_mostValues(static_cast<double>(fileSize) * mostValuesPerByte * (compressed ? mostExpansion : 1.0))
{
}

void SizeCheck::addStored(double count, double bytes, std::string const& what)
{
    if (!(count >= 0.0) || count > m_mostValues)
        throw ImportError("it is too small for the number of " + what +
                          " that it claims to have; it is damaged or incomplete");
    addComputed(count, bytes);
}

void SizeCheck::addComputed(double count, double bytes)
{
    m_bytes += count * bytes;
    if (count * bytes > 0.0) // to ask the system takes time
        checkMemoryFor(m_bytes);
}

void checkMemoryFor(double bytes)
{
    double const available = availableMemory();
    if (!(bytes <= available * mostOfMemory))
        throw ImportError("it needs " + gigabytes(bytes) + " of memory, and " + gigabytes(available) + " are free");
}

double availableMemory()
{
    std::ifstream file("/proc/meminfo");
    std::string name;
    double kilobytes = 0.0;
    std::string unit;
    while (file >> name >> kilobytes && std::getline(file, unit)) {
        if (name == "MemAvailable:")
            return kilobytes * 1024.0;
    }
    return std::numeric_limits<double>::infinity();
}

} // namespace veldraw::app

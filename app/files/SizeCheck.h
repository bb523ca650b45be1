#pragma once

#include <cstdint>
#include <string>

namespace veldraw::app {

/// Keeps a damaged or malicious header from taking all memory: numbers of values are held against what the file can hold, and
/// their sum against the memory that is free. Counts are doubles, so that no product of dimensions can overflow.
class SizeCheck
{
public:
    /// @param compressed values may take far less room in the file than in memory
    SizeCheck(std::int64_t fileSize, bool compressed);

    /// @p count values of @p bytes each that stand in the file. @throws ImportError when the file is too small for them
    void addStored(double count, double bytes, std::string const& what);

    /// @p count values of @p bytes each that are computed. @throws ImportError
    void addComputed(double count, double bytes);

private:
    double m_mostValues;
    double m_bytes = 0.0;
};

/// Free memory in bytes, as the system sees it.
double availableMemory();

/// @throws ImportError when @p bytes are more than what can be taken of the free memory
void checkMemoryFor(double bytes);

} // namespace veldraw::app

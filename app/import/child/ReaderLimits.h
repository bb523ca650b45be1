#pragma once

#include <cstdint>
#include <string>

namespace veldraw::app {

/// What a process that reads files for us may take.
struct ReaderLimits
{
    std::int64_t bytes = 0;          ///< of memory, for the data
    std::int64_t seconds = 0;        ///< of processor time
    std::int64_t quietSeconds = 0;   ///< without a sign of life
    std::int64_t allSeconds = 86400; ///< for one file, whatever it says

    /// For a file, by its size: more than any sound file needs, on the slowest machine.
    /// @param isCompressed values may take far less room in the file than in memory
    /// @throws ImportError when the file cannot be looked at
    static ReaderLimits forFile(std::string const& path, bool isCompressed);

    /// The same for files of so many bytes in all.
    static ReaderLimits forBytes(double size, bool isCompressed);
};

} // namespace veldraw::app

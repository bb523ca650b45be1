#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace veldraw::app {

/// A file as it was when it was read or written, so that a later run of the program can tell whether it still is that file.
struct StampedFile
{
    std::string path;
    std::int64_t size = -1;    ///< in bytes; -1 when it could not be looked at
    std::int64_t modified = 0; ///< nanoseconds since 1970

    /// The file as it is now.
    static StampedFile of(std::string const& path);

    /// Why it is not the file that was noted; empty when it is.
    std::string difference() const;
};

/// The first difference of several files; empty when there is none.
std::string differenceOf(std::vector<StampedFile> const& files);

} // namespace veldraw::app

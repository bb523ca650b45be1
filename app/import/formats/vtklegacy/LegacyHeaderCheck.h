#pragma once

#include <cstdint>
#include <string>

namespace veldraw::app {

/// Holds the counts in a legacy VTK file against its size, before a reader allocates for them.
/// @throws ImportError when the file cannot contain what it promises
void checkLegacyHeader(std::string const& path, std::int64_t fileSize);

} // namespace veldraw::app

#pragma once

#include "kernel/base/Progress.h"

#include <cstdint>
#include <string>

namespace veldraw::app {

/// Holds the counts in a legacy VTK file against its size, before a reader allocates for them.
/// @throws ImportError when the file cannot contain what it promises; kernel::Interrupted
void checkLegacyHeader(std::string const& path, std::int64_t fileSize, kernel::Progress const& progress);

} // namespace veldraw::app

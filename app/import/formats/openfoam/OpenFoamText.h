#pragma once

#include "kernel/base/Progress.h"

#include <string>
#include <vector>

namespace veldraw::app {

/// Names of the files that a file of an OpenFOAM case, packed by gzip or not, includes, as they stand there.
/// @throws ImportError when it cannot be read; kernel::Interrupted
std::vector<std::string> includesIn(std::string const& path, kernel::Progress const& progress);

} // namespace veldraw::app

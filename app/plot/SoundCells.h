#pragma once

#include "kernel/data/Connectivity.h"

#include <cstdint>

namespace veldraw::app {

/// Whether there are cells and all of their corners are points that exist. A file may have brought any numbers; what draws trusts them.
bool areSound(kernel::Connectivity const& cells, std::int64_t pointCount);

} // namespace veldraw::app

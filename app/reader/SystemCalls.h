#pragma once

#include <vector>

namespace veldraw::app {

/// The calls of the system that reading files takes, by number. Some are restricted further where the filter is made.
std::vector<int> allowedSystemCalls();

} // namespace veldraw::app

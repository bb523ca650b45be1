#pragma once

#include <string>

namespace veldraw::samples {

/// Heights (m) that were surveyed on an island of some 8 by 7 km, to triangulate: marks that are scattered over it, the closed line
/// of its shore, which turns in at three bays, and that of a lake. @throws std::runtime_error
void writeIsland(std::string const& path);

} // namespace veldraw::samples

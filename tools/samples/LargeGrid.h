#pragma once

#include <string>

namespace veldraw::samples {

/// A structured grid for measurements: @p edge points along each edge of a cube (216 make ten million) with six float variables,
/// X, Y, Z, p, T and rho, raw appended. @throws std::runtime_error
void writeLargeGrid(std::string const& path, int edge = 216);

} // namespace veldraw::samples

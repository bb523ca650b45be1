#pragma once

#include <string>

namespace veldraw::samples {

/// A bent bar of tetrahedra: displacement and temperature at the points, stress in the cells. @throws std::runtime_error
void writeTetrahedra(std::string const& path);

/// A wavy membrane of triangles: deflection at the points, thickness in the cells. @throws std::runtime_error
void writeTriangles(std::string const& path);

} // namespace veldraw::samples

#pragma once

#include "kernel/data/Connectivity.h"

#include <cstdint>

namespace veldraw::app {

/// Number of different edges of polygon cells. @throws std::bad_alloc
std::int64_t countPolygonFaces(kernel::Connectivity const& cells);

/// Number of different faces of polyhedral cells; a face between two cells counts once. @throws std::bad_alloc
std::int64_t countPolyhedronFaces(kernel::Connectivity const& cells);

} // namespace veldraw::app

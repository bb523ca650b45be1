#pragma once

#include "app/import/files/FileStamp.h"

#include <cstdint>
#include <vector>

namespace veldraw::app {

/// The cells of a mesh that are not read with the grid, but when the zone's dimensions are wanted. All of them are taken over as
/// they are.
struct DeferredCells
{
    FileStamp file;
    std::int64_t points = 0; ///< of the mesh
    std::int64_t count = 0;
    std::vector<unsigned char> kinds; ///< VTK cell types, each once
};

} // namespace veldraw::app

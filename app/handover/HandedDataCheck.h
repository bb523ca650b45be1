#pragma once

#include "app/handover/HandedGrid.h"

#include <cstdint>
#include <vector>

namespace veldraw::app {

/// Holds data that another process hands over against the memory that came with them and against themselves, as if an enemy had
/// described them: afterwards each array lies within its segment and is of a kind that fits its place, all arrays take no more memory
/// than there is, a grid has what its kind has, and nothing is there so often that VTK or the kernel could not stand it.
/// What stands in the arrays is not looked at; indices of cells are checked by who takes the cells over, and so are the numbers of values for
/// points and cells, which may be left in the file.
/// @param bytesOfSegments as the system tells them, not the other process
/// @throws Nonsense
void checkHandedData(HandedData const& data, std::vector<std::uint64_t> const& bytesOfSegments);

} // namespace veldraw::app

#pragma once

#include <cstdint>

namespace veldraw::kernel {

/// Whether a slot of a cell-centred field of an ordered zone has a cell: fields of points and of cells have equally many slots, so
/// that the last slot along each dimension has none.
/// @param slot zero-based, below the product of the dimensions; @param i, j, k points along each dimension
inline bool hasCell(std::int64_t slot, std::int64_t i, std::int64_t j, std::int64_t k)
{
    auto const isBeforeLast = [](std::int64_t index, std::int64_t points) { return points == 1 || index < points - 1; };
    std::int64_t const row = slot / i;
    std::int64_t const layer = row / j;
    return isBeforeLast(slot - row * i, i) && isBeforeLast(row - layer * j, j) && isBeforeLast(layer, k);
}

} // namespace veldraw::kernel

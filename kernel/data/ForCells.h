#pragma once

#include "kernel/data/Zone.h"
#include "kernel/storage/CellSlots.h"

namespace veldraw::kernel {

/// Calls @p body (number of the cell, its slot, first corner, end of the corners) for each cell of a zone whose dimensions are known.
template <typename Body>
void forCells(Zone const& zone, Body const& body)
{
    std::int64_t cell = 0;
    if (zone.isOrdered()) {
        forOrderedCells(zone.i, zone.j, zone.k, [&](std::int64_t slot, std::int64_t const* points, std::size_t count) {
            body(cell++, slot, points, points + count);
        });
        return;
    }
    Connectivity const* const cells = zone.connectivity.get();
    for (; cells != nullptr && cell < cells->cellCount; ++cell) {
        body(cell, cell, cells->indices + cells->offsets[cell], cells->indices + cells->offsets[cell + 1]);
    }
}

} // namespace veldraw::kernel

#pragma once

#include "kernel/base/Progress.h"
#include "kernel/base/ZeroedArray.h"
#include "kernel/mesh/ZoneCells.h"

namespace veldraw::kernel {

/// The slots of a zone's cells in an order in which neighbours in space come soon after each other, so that what one cell
/// has read is still at hand for the next. Cells of a file may come in any order.
///
/// Ordered zones and small ones keep their order. Memory: 4 bytes a cell.
class CellOrder
{
public:
    /// @param cells less than 2^32; @param box where neighbours matter
    /// @throws Interrupted, std::bad_alloc
    CellOrder(ZoneCells const& cells, Box const& box, Progress& progress);

    /// The slot that has a place in the order.
    std::int64_t slot(std::int64_t place) const
    {
        return m_slots.isEmpty() ? place : std::int64_t{m_slots[static_cast<std::size_t>(place)]};
    }

private:
    ZeroedArray<std::uint32_t> m_slots; // none: as they are
};

} // namespace veldraw::kernel

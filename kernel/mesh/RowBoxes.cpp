#include "kernel/mesh/RowBoxes.h"

#include <algorithm>

namespace veldraw::kernel {

/// Reads the cells of a row from one on, or as many of them as there is room for.
bool RowBoxes::read(std::int64_t slot)
{
    if (!m_cells.hasOrderedCell(slot)) {
        return false;
    }
    m_first = slot;
    m_count = std::min(m_cells.cellsInRowFrom(slot), cellsAtATime);
    auto const cells = static_cast<std::size_t>(m_count);
    m_check.fill(0.0);
    for (std::size_t axis = 0; axis < 3; ++axis) {
        Numbers& low = m_low[axis];
        Numbers& high = m_high[axis];
        low.fill(Box::infinity);
        high.fill(-Box::infinity);
        m_rowCount = 0;
        m_cells.forCornerRows(slot, [&](std::int64_t first) {
            Numbers& numbers = m_rows[axis][m_rowCount++];
            m_cells.coordinate(axis).read(first, m_count + 1, numbers.data());
            for (std::size_t point = 0; point <= cells; ++point) {
                low[point] = std::min(low[point], numbers[point]);
                high[point] = std::max(high[point], numbers[point]);
                m_check[point] += 0 * numbers[point];
            }
        });
        for (std::size_t cell = 0; cell < cells; ++cell) {
            low[cell] = std::min(low[cell], low[cell + 1]);
            high[cell] = std::max(high[cell], high[cell + 1]);
        }
    }
    for (std::size_t cell = 0; cell < cells; ++cell) {
        m_check[cell] += m_check[cell + 1];
    }
    return true;
}

} // namespace veldraw::kernel

#include "kernel/mesh/RowBoxes.h"

#include "kernel/compute/WideLanes.h"

namespace veldraw::kernel {

namespace {

/// Takes the points of one more row into the boxes between each point and itself.
VELDRAW_WIDE_LANES("avx512f", "avx2")
void add(double const* numbers, std::size_t count, double* low, double* high, double* check)
{
    for (std::size_t point = 0; point < count; ++point) {
        low[point] = numbers[point] < low[point] ? numbers[point] : low[point];
        high[point] = numbers[point] > high[point] ? numbers[point] : high[point];
        check[point] += 0 * numbers[point];
    }
}

/// Makes boxes of the cells between points of those of the points.
VELDRAW_WIDE_LANES("avx512f", "avx2")
void join(std::size_t cells, double* low, double* high)
{
    for (std::size_t cell = 0; cell < cells; ++cell) {
        low[cell] = low[cell + 1] < low[cell] ? low[cell + 1] : low[cell];
        high[cell] = high[cell + 1] > high[cell] ? high[cell + 1] : high[cell];
    }
}

} // namespace

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
            add(numbers.data(), cells + 1, low.data(), high.data(), m_check.data());
        });
        join(cells, low.data(), high.data());
    }
    for (std::size_t cell = 0; cell < cells; ++cell) {
        m_check[cell] += m_check[cell + 1];
    }
    return true;
}

void RowBoxes::widen(std::size_t axes, double factor)
{
    for (std::size_t cell = 0; cell < count(); ++cell) {
        double const sides = (m_high[0][cell] - m_low[0][cell]) + (m_high[1][cell] - m_low[1][cell]) +
                             (m_high[2][cell] - m_low[2][cell]);
        for (std::size_t axis = 0; axis < axes; ++axis) {
            m_low[axis][cell] -= sides * factor;
            m_high[axis][cell] += sides * factor;
        }
    }
}

} // namespace veldraw::kernel

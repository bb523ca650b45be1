#include "app/vtk/OrderedCells.h"

#include "app/vtk/DataTypes.h"
#include "kernel/storage/CellSlots.h"

#include <cstring>

namespace veldraw::app {

namespace {

// Copies a run of values; runs of contiguous bytes in one go, bits and strided values one by one.
void copyRun(kernel::Buffer const& from, std::int64_t fromStart, kernel::Buffer& to, std::int64_t toStart,
             std::int64_t length)
{
    std::int64_t const bytes = bytesOf(from.type());
    if (bytes > 0 && from.isContiguous()) {
        std::memcpy(static_cast<char*>(to.mutableData()) + toStart * bytes,
                    static_cast<char const*>(from.data()) + fromStart * bytes,
                    static_cast<std::size_t>(length * bytes));
        return;
    }
    for (std::int64_t n = 0; n < length; ++n)
        to.setValue(toStart + n, from.value(fromStart + n));
}

} // namespace

OrderedCells::OrderedCells(kernel::Zone const& zone)
    : m_rowLength(kernel::cellsAlong(zone.i))
    , m_rows(kernel::cellsAlong(zone.j))
    , m_layers(kernel::cellsAlong(zone.k))
    , m_rowStride(zone.i)
    , m_layerStride(zone.i * zone.j)
    , m_slots(zone.i * zone.j * zone.k)
{
}

std::shared_ptr<kernel::Buffer> OrderedCells::compact(kernel::Buffer const& nodal) const
{
    auto const result = kernel::Buffer::allocate(nodal.type(), count());
    for (std::int64_t k = 0; k < m_layers; ++k) {
        for (std::int64_t j = 0; j < m_rows; ++j)
            copyRun(nodal, j * m_rowStride + k * m_layerStride, *result, (k * m_rows + j) * m_rowLength, m_rowLength);
    }
    return result;
}

std::shared_ptr<kernel::Buffer> OrderedCells::expand(kernel::Buffer const& compact) const
{
    auto const result = kernel::Buffer::allocate(compact.type(), m_slots);
    for (std::int64_t k = 0; k < m_layers; ++k) {
        for (std::int64_t j = 0; j < m_rows; ++j)
            copyRun(compact, (k * m_rows + j) * m_rowLength, *result, j * m_rowStride + k * m_layerStride, m_rowLength);
    }
    return result;
}

} // namespace veldraw::app

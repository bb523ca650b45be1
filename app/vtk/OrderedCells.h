#pragma once

#include "kernel/data/Zone.h"
#include "kernel/storage/Buffer.h"

#include <memory>

namespace veldraw::app {

/// Converts the cell-centred values of an ordered zone between the kernel's layout, nodal strides with unused last
/// slots, and VTK's, a value a cell without gaps.
class OrderedCells
{
public:
    explicit OrderedCells(kernel::Zone const& zone);

    std::int64_t count() const { return m_rowLength * m_rows * m_layers; }

    /// True when the cells stand at the start of the nodal layout without gaps, as in a one-dimensional zone.
    bool isPrefix() const { return m_rows == 1 && m_layers == 1; }

    /// A contiguous buffer of count() values from one with nodal strides. @throws std::bad_alloc
    std::shared_ptr<kernel::Buffer> compact(kernel::Buffer const& nodal) const;

    /// A contiguous buffer with nodal strides from one of count() values; unused slots are 0. @throws std::bad_alloc
    std::shared_ptr<kernel::Buffer> expand(kernel::Buffer const& compact) const;

private:
    std::int64_t m_rowLength;   // cells along I
    std::int64_t m_rows;        // cells along J
    std::int64_t m_layers;      // cells along K
    std::int64_t m_rowStride;   // points along I
    std::int64_t m_layerStride; // points in a layer
    std::int64_t m_slots;       // values of the nodal layout
};

} // namespace veldraw::app

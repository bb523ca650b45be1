#pragma once

#include "kernel/storage/Buffer.h"
#include "kernel/storage/HiddenSlots.h"

#include <memory>

namespace veldraw::kernel {

struct Zone;

/// The marks that a file has at the points and cells of a zone, and the points and cells that these marks hide.
///
/// A mark is a byte of bits with the meaning that they have in VTK's files. A point is hidden by hiddenPoint, and when all
/// of its cells are marked as hidden. A cell is hidden by duplicateCell (another zone has it too), refinedCell (finer cells
/// replace it) and hiddenCell, and when one of its corners is marked as hidden. The other bits hide nothing.
///
/// A blanking never changes, so copies of a zone share it.
class Blanking
{
public:
    static constexpr unsigned char hiddenPoint = 2;
    static constexpr unsigned char duplicateCell = 1;
    static constexpr unsigned char refinedCell = 8;
    static constexpr unsigned char hiddenCell = 32;
    static constexpr unsigned char hidingCellMarks = duplicateCell | refinedCell | hiddenCell;

    struct Marks
    {
        std::shared_ptr<Buffer const> ofPoints; ///< bytes, one a point; null for none
        std::shared_ptr<Buffer const>
            ofCells; ///< bytes, one a cell, without unused slots in an ordered zone too; null for none
    };

    /// @param zone with known dimensions and its cells
    /// @param marks of as many points and cells as the zone has
    /// @throws std::bad_alloc
    Blanking(Zone const& zone, Marks marks);

    /// Slots that are hidden though nothing marks them; null for none.
    struct Slots
    {
        HiddenSlots const* points = nullptr; ///< as if they were marked by hiddenPoint
        HiddenSlots const* cells = nullptr;  ///< as if they were marked by hiddenCell
    };

    /// The same with more that is hidden. marks() are those of the file alone. @throws std::bad_alloc
    Blanking(Zone const& zone, Marks marks, Slots const& more);

    Marks const& marks() const { return m_marks; }

    /// The value slots of the hidden points or cells; null when none is hidden.
    std::shared_ptr<HiddenSlots const> const& hidden(ValueLocation_e location) const
    {
        return location == ValueLocation_Nodal ? m_points : m_cells;
    }

private:
    Marks m_marks;
    std::shared_ptr<HiddenSlots const> m_points;
    std::shared_ptr<HiddenSlots const> m_cells;
};

} // namespace veldraw::kernel

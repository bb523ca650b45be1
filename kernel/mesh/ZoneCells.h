#pragma once

#include "kernel/compute/Box.h"
#include "kernel/data/DimensionsLoader.h"
#include "kernel/storage/QuickReader.h"
#include "platform/vdsdkbase/VelUtilTypes.h"

#include <cmath>
#include <memory>
#include <optional>

namespace veldraw::kernel {

/// A cell of a zone, by the numbers of its points. What the pointers point at belongs to the zone or to who asked for the cell.
struct Cell
{
    Connectivity::Shape shape;
    std::int64_t const* corners;
    std::size_t cornerCount;             ///< 0: no cell with an area or a volume
    std::int64_t const* faces = nullptr; ///< of a polyhedron, as in Connectivity::faceStream
};

/// The cells of a zone, and where their corners are. Cells of an ordered zone are made when they are asked for: bricks, or
/// quadrilaterals when one dimension is 1.
class ZoneCells
{
public:
    /// X, Y, Z of the points; null for a coordinate that is 0 everywhere.
    using Coordinates = std::array<std::shared_ptr<Buffer const>, 3>;

    /// Room for the corners of a cell that is made when it is asked for.
    using Corners = std::array<std::int64_t, 8>;

    ZoneCells(ZoneType_e type, ZoneDimensions dimensions, Coordinates coordinates);

    bool isOrdered() const { return m_type == ZoneType_Ordered; }

    /// Number of slots that a cell-centred field of the zone has.
    std::int64_t slotCount() const { return m_slotCount; }

    /// The cell with this slot; one without corners when the slot has none with an area or a volume.
    Cell cell(std::int64_t slot, Corners& room) const;

    /// The box of some points; nothing when a coordinate is not finite.
    std::optional<Box> box(std::int64_t const* points, std::size_t count) const
    {
        Box box;
        double check = 0; // no number as soon as something is not finite
        for (std::size_t at = 0; at < count; ++at) {
            Point const place = point(points[at]);
            box.add(place);
            check += 0 * place[0] + 0 * place[1] + 0 * place[2];
        }
        return std::isnan(check) ? std::nullopt : std::optional<Box>(box);
    }

    /// Has the processor fetch what cell() and then point() will read, while it is busy with cells before. To be called for a
    /// cell that is soon to come, step by step: 0 early, 1 later, 2 shortly before it comes.
    void fetchAhead(std::int64_t slot, int step) const;

    bool isHidden(std::int64_t slot) const { return m_hidden && m_hidden->contains(slot); }

    Point point(std::int64_t number) const
    {
        return {m_numbers[0].at(number), m_numbers[1].at(number), m_numbers[2].at(number)};
    }

    QuickReader const& coordinate(std::size_t axis) const { return m_numbers[axis]; }

    /// The shape of all cells of an ordered zone.
    Connectivity::Shape orderedShape() const { return m_shape; }

    /// Whether a slot of an ordered zone has a cell with an area or a volume.
    bool hasOrderedCell(std::int64_t slot) const;

    /// Number of cells from this one on to the end of its row, the one along the first dimension above 1. For an ordered zone.
    std::int64_t cellsInRowFrom(std::int64_t slot) const;

    /// Calls @p body with the first point of each row of points that a cell of an ordered zone is between; the cell's other
    /// corners are the next points of these rows.
    template <typename Body>
    void forCornerRows(std::int64_t slot, Body const& body) const
    {
        for (std::size_t corner = 0; corner < m_cornerCount; corner += corner % 4 == 0 ? 3 : 1) { // 0, 3, 4, 7
            body(slot + m_steps[corner]);
        }
    }

private:
    void fetchPoint(std::int64_t number) const;
    Cell orderedCell(std::int64_t slot, Corners& room) const;

    ZoneType_e m_type;
    ZoneDimensions m_dimensions;
    std::int64_t m_slotCount;
    std::array<QuickReader, 3> m_numbers;
    std::shared_ptr<HiddenSlots const> m_hidden;
    Connectivity::Shape m_shape;         // of cells that have no shape of their own
    std::size_t m_cornerCount = 0;       // of an ordered zone's cells
    std::array<std::int64_t, 8> m_steps; // from the first corner of an ordered zone's cell to all
};

} // namespace veldraw::kernel

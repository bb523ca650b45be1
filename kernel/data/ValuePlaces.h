#pragma once

#include "kernel/data/DimensionsLoader.h"
#include "kernel/storage/CellSlots.h"
#include "kernel/storage/QuickReader.h"
#include "platform/vdsdkbase/VelUtilTypes.h"

#include <array>

namespace veldraw::kernel {

/// Where the values of a zone are in space: at its points, or at the means of the corners of its cells.
class ValuePlaces
{
public:
    /// X, Y, Z of the points; null for a coordinate that is passive and reads as 0.
    using Coordinates = std::array<std::shared_ptr<Buffer const>, 3>;

    /// @param dimensions of the zone, with its cells; @param count of coordinates, 2 or 3
    ValuePlaces(ZoneType_e type, ZoneDimensions dimensions, Coordinates coordinates, int count,
                ValueLocation_e location);

    ValueLocation_e location() const { return m_location; }

    /// Number of slots of a field with its values here.
    std::int64_t slotCount() const { return m_slotCount; }

    /// Whether a slot has a value: the last slots of a cell-centred field of an ordered zone belong to no cell.
    bool exists(std::int64_t slot) const;

    /// Whether the blanking of the zone hides the point or cell.
    bool isHidden(std::int64_t slot) const { return m_hidden && m_hidden->contains(slot); }

    /// Writes the coordinates of a slot that exists to @p place: 2 or 3 numbers.
    void read(std::int64_t slot, double* place) const;

private:
    void readPoint(std::int64_t point, double* place) const;
    void readOrderedCell(std::int64_t slot, double* place) const;
    void readCell(std::int64_t cell, double* place) const;

    bool m_isOrdered;
    ZoneDimensions m_dimensions;
    std::array<QuickReader, 3> m_coordinates;
    int m_count;
    ValueLocation_e m_location;
    std::int64_t m_slotCount;
    CellCorners m_corners; // of an ordered zone
    std::shared_ptr<HiddenSlots const> m_hidden;
};

} // namespace veldraw::kernel

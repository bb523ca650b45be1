#pragma once

#include "kernel/base/Progress.h"
#include "kernel/base/RoomBeside.h"
#include "kernel/mesh/CellParts.h"

namespace veldraw::kernel {

/// Places for the points of a zone, so that the corners of a cell are near each other in memory. Points of a file may come in
/// any order; if theirs is a bad one, they get their places in the order in which the cells name them.
class PointOrder
{
public:
    /// @param pointCount less than 2^32; the corners of the cells are below it
    /// @throws Interrupted, std::bad_alloc
    PointOrder(CellParts const& cells, std::int64_t pointCount, RoomBeside const& room, Progress const& progress);

    /// Whether all points have the place of their number.
    bool isNatural() const { return m_places.isEmpty(); }

    std::uint32_t placeOf(std::int64_t point) const
    {
        return isNatural() ? static_cast<std::uint32_t>(point) : m_places[static_cast<std::size_t>(point)];
    }

    /// The point at each place; empty when the order is natural. @throws Interrupted, std::bad_alloc
    ZeroedArray<std::uint32_t> points(RoomBeside const& room, Progress const& progress) const;

private:
    ZeroedArray<std::uint32_t> m_places;
};

} // namespace veldraw::kernel

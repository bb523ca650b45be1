#include "kernel/mesh/ZoneCells.h"

#include "kernel/data/Zone.h"
#include "kernel/storage/CellSlots.h"

namespace veldraw::kernel {

namespace {

using Shape = Connectivity::Shape;

} // namespace

ZoneCells::ZoneCells(ZoneType_e type, ZoneDimensions dimensions, Coordinates coordinates)
    : m_type(type)
    , m_dimensions(std::move(dimensions))
    , m_slotCount(Zone({}, type, m_dimensions.i, m_dimensions.j, m_dimensions.k).valueCount(ValueLocation_CellCentered))
    , m_hidden(m_dimensions.blanking ? m_dimensions.blanking->hidden(ValueLocation_CellCentered) : nullptr)
    , m_shape(Connectivity::shapeOf(type))
    , m_steps{}
{
    for (std::size_t axis = 0; axis < 3; ++axis) {
        m_numbers[axis] = QuickReader(std::move(coordinates[axis]));
    }
    if (type != ZoneType_Ordered) {
        m_slotCount = m_dimensions.connectivity ? m_dimensions.connectivity->cellCount : 0;
        return;
    }
    auto const& [i, j, k] = std::array{m_dimensions.i, m_dimensions.j, m_dimensions.k};
    std::vector<std::int64_t> strides;
    for (auto const& [points, stride] : {std::pair(i, std::int64_t{1}), {j, i}, {k, i * j}}) {
        if (points > 1) {
            strides.push_back(stride);
        }
    }
    if (strides.size() < 2) {
        return;
    }
    m_shape = strides.size() == 2 ? Shape::Quad : Shape::Brick;
    m_cornerCount = strides.size() == 2 ? 4 : 8;
    for (std::size_t corner = 0; corner < m_cornerCount; ++corner) {
        std::size_t const around = corner % 4;
        m_steps[corner] = (around == 1 || around == 2 ? strides[0] : 0) + (around >= 2 ? strides[1] : 0) +
                          (corner >= 4 ? strides[2] : 0);
    }
}

Cell ZoneCells::cell(std::int64_t slot, Corners& room) const
{
    if (isOrdered()) {
        return orderedCell(slot, room);
    }
    Connectivity const& cells = *m_dimensions.connectivity;
    Shape const shape = cells.shapes != nullptr ? cells.shapes[slot] : m_shape;
    std::int64_t const first = cells.offsets[slot];
    Cell cell{shape, cells.indices + first, static_cast<std::size_t>(cells.offsets[slot + 1] - first)};
    if (shape == Shape::Polyhedron && cells.faceOffsets != nullptr && cells.faceOffsets[slot] >= 0) {
        cell.faces = cells.faceStream + cells.faceOffsets[slot];
    }
    bool const isSolidWithoutFaces = shape == Shape::Polyhedron && cell.faces == nullptr;
    if (shape == Shape::LineSegment || isSolidWithoutFaces) {
        cell.cornerCount = 0;
    }
    return cell;
}

void ZoneCells::fetchPoint(std::int64_t number) const
{
    for (QuickReader const& numbers : m_numbers) {
        numbers.fetch(number);
    }
}

void ZoneCells::fetchAhead(std::int64_t slot, int step) const
{
    if (isOrdered()) {
        for (std::size_t corner = 0; step == 2 && corner < m_cornerCount; ++corner) {
            fetchPoint(slot + m_steps[corner]);
        }
        return;
    }
    Connectivity const& cells = *m_dimensions.connectivity;
    if (step == 0) {
        __builtin_prefetch(cells.offsets + slot);
    } else if (step == 1) {
        __builtin_prefetch(cells.indices + cells.offsets[slot]);
    } else {
        for (std::int64_t at = cells.offsets[slot]; at < cells.offsets[slot + 1]; ++at) {
            fetchPoint(cells.indices[at]);
        }
    }
}

bool ZoneCells::hasOrderedCell(std::int64_t slot) const
{
    return m_cornerCount > 0 && hasCell(slot, m_dimensions.i, m_dimensions.j, m_dimensions.k);
}

std::int64_t ZoneCells::cellsInRowFrom(std::int64_t slot) const
{
    std::int64_t const points = m_dimensions.i > 1 ? m_dimensions.i : m_dimensions.j;
    return points - 1 - slot % points;
}

Cell ZoneCells::orderedCell(std::int64_t slot, Corners& room) const
{
    for (std::size_t corner = 0; corner < m_cornerCount; ++corner) {
        room[corner] = slot + m_steps[corner];
    }
    return {m_shape, room.data(), hasOrderedCell(slot) ? m_cornerCount : 0};
}

} // namespace veldraw::kernel

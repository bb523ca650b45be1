#include "kernel/data/Blanking.h"

#include "kernel/data/Zone.h"

#include <algorithm>

namespace veldraw::kernel {

namespace {

/// Calls @p body with the number of each cell of an ordered zone, its slot, and its corners.
template <typename Body>
void forOrderedCells(Zone const& zone, Body const& body)
{
    auto const cellsAlong = [](std::int64_t points) { return std::max<std::int64_t>(points - 1, 1); };
    std::vector<std::int64_t> steps{0}; // from the first corner to all
    for (auto const& [points, step] :
         {std::pair(zone.i, std::int64_t{1}), {zone.j, zone.i}, {zone.k, zone.i * zone.j}}) {
        for (std::size_t at = 0, count = points > 1 ? steps.size() : 0; at < count; ++at) {
            steps.push_back(steps[at] + step);
        }
    }
    std::vector<std::int64_t> corners(steps.size());
    std::int64_t cell = 0;
    for (std::int64_t k = 0; k < cellsAlong(zone.k); ++k) {
        for (std::int64_t j = 0; j < cellsAlong(zone.j); ++j) {
            for (std::int64_t i = 0; i < cellsAlong(zone.i); ++i) {
                std::int64_t const slot = i + zone.i * (j + zone.j * k);
                std::transform(steps.begin(), steps.end(), corners.begin(), [slot](auto step) { return slot + step; });
                body(cell++, slot, corners.data(), corners.data() + corners.size());
            }
        }
    }
}

/// The same for a finite-element zone, whose slots are its cells.
template <typename Body>
void forElements(Connectivity const& cells, Body const& body)
{
    for (std::int64_t cell = 0; cell < cells.cellCount; ++cell) {
        body(cell, cell, cells.indices + cells.offsets[cell], cells.indices + cells.offsets[cell + 1]);
    }
}

template <typename Body>
void forCells(Zone const& zone, Body const& body)
{
    if (zone.pointCount() > 0 && zone.isOrdered()) {
        forOrderedCells(zone, body);
    } else if (zone.connectivity) {
        forElements(*zone.connectivity, body);
    }
}

bool isMarked(Buffer const* marks, std::int64_t at, unsigned char bits)
{
    return marks != nullptr && (static_cast<unsigned char>(marks->bits(at)) & bits) != 0;
}

std::shared_ptr<HiddenSlots const> unlessEmpty(std::shared_ptr<HiddenSlots> slots)
{
    return slots->count() > 0 ? std::move(slots) : nullptr;
}

} // namespace

Blanking::Blanking(Zone const& zone, Marks marks)
    : m_marks(std::move(marks))
{
    std::int64_t const pointCount = zone.pointCount();
    auto const points = std::make_shared<HiddenSlots>(pointCount);
    for (std::int64_t point = 0; m_marks.ofPoints && point < pointCount; ++point) {
        if (isMarked(m_marks.ofPoints.get(), point, hiddenPoint)) {
            points->insert(point);
        }
    }
    auto const cells = std::make_shared<HiddenSlots>(zone.valueCount(ValueLocation_CellCentered));
    HiddenSlots lonely(pointCount);  // points with a hidden cell
    HiddenSlots visited(pointCount); // points with a visible cell
    forCells(zone, [&](std::int64_t cell, std::int64_t slot, std::int64_t const* first, std::int64_t const* last) {
        bool const isHidden = isMarked(m_marks.ofCells.get(), cell, hidingCellMarks);
        std::for_each(first, last, [&](std::int64_t point) { (isHidden ? lonely : visited).insert(point); });
        if (isHidden || std::any_of(first, last, [&](std::int64_t point) { return points->contains(point); })) {
            cells->insert(slot);
        }
    });
    for (std::int64_t point = lonely.find(true, 0, pointCount); point < pointCount;
         point = lonely.find(true, point + 1, pointCount)) {
        if (!visited.contains(point)) {
            points->insert(point);
        }
    }
    m_points = unlessEmpty(points);
    m_cells = unlessEmpty(cells);
}

} // namespace veldraw::kernel

#include "kernel/data/Blanking.h"

#include "kernel/data/ForCells.h"

#include <algorithm>

namespace veldraw::kernel {

namespace {

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
    : Blanking(zone, std::move(marks), {})
{
}

Blanking::Blanking(Zone const& zone, Marks marks, Slots const& more)
    : m_marks(std::move(marks))
{
    std::int64_t const pointCount = zone.pointCount();
    auto const points =
        more.points ? std::make_shared<HiddenSlots>(*more.points) : std::make_shared<HiddenSlots>(pointCount);
    for (std::int64_t point = 0; m_marks.ofPoints && point < pointCount; ++point) {
        if (isMarked(m_marks.ofPoints.get(), point, hiddenPoint)) {
            points->insert(point);
        }
    }
    auto const cells = std::make_shared<HiddenSlots>(zone.valueCount(ValueLocation_CellCentered));
    HiddenSlots lonely(pointCount);  // points with a hidden cell
    HiddenSlots visited(pointCount); // points with a visible cell
    forCells(zone, [&](std::int64_t cell, std::int64_t slot, std::int64_t const* first, std::int64_t const* last) {
        bool const isHidden = isMarked(m_marks.ofCells.get(), cell, hidingCellMarks) ||
                              (more.cells != nullptr && more.cells->contains(slot));
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

#include "app/plot/IndexCut.h"

#include <array>
#include <cmath>

namespace veldraw::app {

namespace {

using Index = std::int64_t;

// A part of the grid's points: along A, then along B.
struct Sheet
{
    Index first;
    Index countA;
    Index countB;
    Index stepA;
    Index stepB;
    Index toCell;  ///< from the point of lowest numbers to the cell whose values are shown
    Index toOther; ///< to the cell on the other side of the sheet, which is seen where that one is hidden
};

// The value slot of the cell that is seen at a point of the sheet; negative when those on both sides are hidden.
Index seenCell(kernel::Zone const& zone, Sheet const& sheet, Index point)
{
    for (Index const slot : {point + sheet.toCell, point + sheet.toOther})
        if (!zone.isHidden(ValueLocation_CellCentered, slot))
            return slot;
    return -1;
}

void addCells(ZoneShape& shape, kernel::Zone const& zone, Sheet const& sheet)
{
    bool const isLine = sheet.countB == 1;
    auto cells = vtkSmartPointer<vtkCellArray>::New();
    for (Index b = 0; b + 1 < sheet.countB || (isLine && b == 0); ++b)
        for (Index a = 0; a + 1 < sheet.countA; ++a) {
            Index const slot = seenCell(zone, sheet, sheet.first + a * sheet.stepA + b * sheet.stepB);
            if (slot < 0)
                continue;
            Index const corner = a + b * sheet.countA;
            if (isLine)
                cells->InsertNextCell({corner, corner + 1});
            else
                cells->InsertNextCell({corner, corner + 1, corner + 1 + sheet.countA, corner + sheet.countA});
            shape.cells.push_back(slot);
        }
    (isLine ? shape.lines : shape.polygons) = cells;
}

// Cells of the last index are those before it.
Sheet sheetOf(std::array<Index, 3> const& counts, std::size_t axis, Index index)
{
    std::array<Index, 3> const steps{1, counts[0], counts[0] * counts[1]};
    std::size_t a = axis == 0 ? 1 : 0;
    std::size_t b = axis == 2 ? 1 : 2;
    if (counts[a] < 2)
        std::swap(a, b);
    bool const isLast = index + 1 == counts[axis];
    bool const isFirst = index == 0;
    Index const behind = isFirst ? 0 : -steps[axis];
    Index const toCell = isLast ? behind : 0;
    return {index * steps[axis], counts[a], counts[b], steps[a], steps[b], toCell, isLast ? toCell : behind};
}

} // namespace

ZoneShape IndexCut::create(kernel::Zone const& zone, int axis, double index)
{
    std::array<Index, 3> const counts{zone.i, zone.j, zone.k};
    auto const along = static_cast<std::size_t>(axis);
    double const rounded = std::round(index);
    ZoneShape shape;
    if (!zone.isOrdered() || zone.dimensionality() < 2 || !(rounded >= 1.0) ||
        rounded > static_cast<double>(counts[along]))
        return shape;
    Sheet const sheet = sheetOf(counts, along, static_cast<Index>(rounded) - 1);
    if (sheet.countA < 2)
        return shape;
    shape.pointCount = sheet.countA * sheet.countB;
    shape.points.reserve(static_cast<std::size_t>(shape.pointCount));
    for (Index b = 0; b < sheet.countB; ++b)
        for (Index a = 0; a < sheet.countA; ++a)
            shape.points.push_back(sheet.first + a * sheet.stepA + b * sheet.stepB);
    addCells(shape, zone, sheet);
    return shape;
}

std::int64_t IndexCut::work(std::array<std::int64_t, 3> const& dimensions, int axis)
{
    std::int64_t points = 1;
    for (std::size_t n = 0; n < dimensions.size(); ++n)
        points *= n == static_cast<std::size_t>(axis) ? 1 : dimensions[n];
    return points;
}

} // namespace veldraw::app

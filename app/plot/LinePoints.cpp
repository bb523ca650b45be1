#include "app/plot/LinePoints.h"

#include "app/plot/FieldValues.h"

#include <vtkDoubleArray.h>

#include <algorithm>
#include <functional>
#include <vector>

namespace veldraw::app {

namespace {

constexpr std::int64_t largestCount = 500000;

using Values = std::function<double(std::int64_t)>;

using Indices = std::array<kernel::IndexRange, 3>;

// Zero-based positions along one direction of @p count points or cells.
std::vector<std::int64_t> positionsAlong(kernel::IndexRange const& range, std::int64_t count)
{
    std::int64_t const last = range.max > 0 ? std::min(range.max, count) : count;
    std::vector<std::int64_t> positions;
    for (std::int64_t n = std::max<std::int64_t>(range.min, 1); n <= last; n += std::max<std::int64_t>(range.skip, 1))
        positions.push_back(n - 1);
    return positions;
}

// Value slots in the order in which the curve runs through them; cells of an ordered zone leave slots out.
std::vector<std::int64_t> slotsOf(kernel::Zone const& zone, ValueLocation_e location, Indices const& indices)
{
    bool const nodal = location == ValueLocation_Nodal;
    if (!zone.isOrdered())
        return positionsAlong(indices[0], nodal ? zone.pointCount() : zone.cellCount());
    auto const count = [nodal](std::int64_t points) { return nodal ? points : std::max<std::int64_t>(points - 1, 1); };
    auto const along = [&](std::size_t n, std::int64_t points) { return positionsAlong(indices[n], count(points)); };
    std::vector<std::int64_t> slots;
    for (std::int64_t const k : along(2, zone.k))
        for (std::int64_t const j : along(1, zone.j))
            for (std::int64_t const i : along(0, zone.i))
                slots.push_back(i + zone.i * (j + zone.j * k));
    return slots;
}

// What lies between a point and the next along a line, for a variable at points beside one in cells.
Values valuesAt(kernel::Field const& field, bool inCells)
{
    FieldValues const values(&field);
    if (inCells && field.location() == ValueLocation_Nodal)
        return [values](std::int64_t n) { return 0.5 * values.at(n) + 0.5 * values.at(n + 1); };
    return [values](std::int64_t n) { return values.at(n); };
}

std::vector<std::int64_t> thinned(std::vector<std::int64_t> const& slots, Values const& y)
{
    auto const count = static_cast<std::int64_t>(slots.size());
    if (count <= largestCount)
        return slots;
    std::vector<std::int64_t> kept;
    std::int64_t const length = count / (largestCount / 4) + 1;
    for (std::int64_t start = 0; start < count; start += length) {
        auto const first = slots.begin() + start;
        auto const last = slots.begin() + std::min(count, start + length) - 1;
        auto const lower = [&y](std::int64_t a, std::int64_t b) { return y(a) < y(b); };
        auto const extremes = std::minmax_element(first, last + 1, lower);
        std::vector<std::int64_t> stretch = {*first, *extremes.first, *extremes.second, *last};
        std::sort(stretch.begin(), stretch.end());
        stretch.erase(std::unique(stretch.begin(), stretch.end()), stretch.end());
        kept.insert(kept.end(), stretch.begin(), stretch.end());
    }
    return kept;
}

} // namespace

vtkSmartPointer<vtkTable> LinePoints::create(kernel::DataSet const& dataSet, int zoneNumber, int x, int y,
                                             Indices const& indices)
{
    kernel::Zone const& zone = *dataSet.zone(zoneNumber);
    kernel::Field const& xField = *dataSet.field(zoneNumber, x);
    kernel::Field const& yField = *dataSet.field(zoneNumber, y);
    bool const mixed = xField.location() != yField.location();
    bool const isLine = zone.isOrdered() && zone.j == 1 && zone.k == 1;
    if (mixed && !isLine)
        return nullptr;

    bool const inCells = mixed || xField.location() == ValueLocation_CellCentered;
    Values const xValues = valuesAt(xField, inCells);
    Values const yValues = valuesAt(yField, inCells);
    std::vector<std::int64_t> const slots =
        thinned(slotsOf(zone, inCells ? ValueLocation_CellCentered : ValueLocation_Nodal, indices), yValues);

    vtkNew<vtkDoubleArray> xColumn;
    vtkNew<vtkDoubleArray> yColumn;
    auto const count = static_cast<vtkIdType>(slots.size());
    xColumn->SetNumberOfValues(count);
    yColumn->SetNumberOfValues(count);
    for (vtkIdType n = 0; n < count; ++n) {
        xColumn->SetValue(n, xValues(slots[static_cast<std::size_t>(n)]));
        yColumn->SetValue(n, yValues(slots[static_cast<std::size_t>(n)]));
    }
    auto table = vtkSmartPointer<vtkTable>::New();
    xColumn->SetName("x");
    yColumn->SetName("y");
    table->AddColumn(xColumn);
    table->AddColumn(yColumn);
    return table;
}

} // namespace veldraw::app

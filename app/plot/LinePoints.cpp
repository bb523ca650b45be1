#include "app/plot/LinePoints.h"

#include "app/plot/FieldValues.h"
#include "kernel/base/Parallel.h"
#include "kernel/storage/CellSlots.h"

#include <vtkDoubleArray.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <iterator>
#include <limits>
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
    std::int64_t const skip = std::max<std::int64_t>(range.skip, 1);
    std::vector<std::int64_t> positions;
    positions.reserve(static_cast<std::size_t>(std::max<std::int64_t>(last, 0) / skip + 1));
    for (std::int64_t n = std::max<std::int64_t>(range.min, 1); n <= last; n += skip)
        positions.push_back(n - 1);
    return positions;
}

// Value slots in the order in which the curve runs through them; cells of an ordered zone leave slots out.
std::vector<std::int64_t> slotsOf(kernel::Zone const& zone, ValueLocation_e location, Indices const& indices)
{
    bool const nodal = location == ValueLocation_Nodal;
    if (!zone.isOrdered())
        return positionsAlong(indices[0], nodal ? zone.pointCount() : zone.cellCount());
    auto const count = [nodal](std::int64_t points) { return nodal ? points : kernel::cellsAlong(points); };
    auto const along = [&](std::size_t n, std::int64_t points) { return positionsAlong(indices[n], count(points)); };
    std::vector<std::int64_t> const alongI = along(0, zone.i);
    std::vector<std::int64_t> const alongJ = along(1, zone.j);
    std::vector<std::int64_t> const alongK = along(2, zone.k);
    std::vector<std::int64_t> slots;
    slots.reserve(alongI.size() * alongJ.size() * alongK.size());
    for (std::int64_t const k : alongK)
        for (std::int64_t const j : alongJ)
            for (std::int64_t const i : alongI)
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

// Hidden points get no value, so that the curve has a gap there.
Values visible(kernel::Zone const& zone, ValueLocation_e location, Values const& values)
{
    auto const hidden = zone.hidden(location);
    if (!hidden)
        return values;
    return [hidden, values](std::int64_t slot) {
        return hidden->contains(slot) ? std::numeric_limits<double>::quiet_NaN() : values(slot);
    };
}

// Places along an axis.
Values placesOf(Values const& values, bool isLogarithmic)
{
    if (!isLogarithmic)
        return values;
    return [values](std::int64_t slot) {
        double const value = values(slot);
        return value > 0.0 ? std::log10(value) : std::numeric_limits<double>::quiet_NaN();
    };
}

vtkSmartPointer<vtkDoubleArray> columnOf(char const* name, std::vector<std::int64_t> const& slots, Values const& values)
{
    auto column = vtkSmartPointer<vtkDoubleArray>::New();
    column->SetName(name);
    column->SetNumberOfValues(static_cast<vtkIdType>(slots.size()));
    std::transform(slots.begin(), slots.end(), column->Begin(), values);
    return column;
}

// How many of the points have a value that is not positive along a logarithmic axis.
std::int64_t countNotPositive(std::vector<std::int64_t> const& slots, std::array<Values, 2> const& values,
                              std::array<bool, 2> isLogarithmic)
{
    if (!isLogarithmic[0] && !isLogarithmic[1])
        return 0;
    return std::count_if(slots.begin(), slots.end(), [&](std::int64_t slot) {
        return (isLogarithmic[0] && values[0](slot) <= 0.0) || (isLogarithmic[1] && values[1](slot) <= 0.0);
    });
}

// The ends of a stretch of the curve and its extremes, in their order.
std::array<std::int64_t, 4> outlineOf(std::int64_t const* first, std::int64_t const* end, Values const& y)
{
    std::int64_t const* lowest = first;
    std::int64_t const* highest = first;
    double low = y(*first);
    double high = low;
    for (std::int64_t const* slot = first + 1; slot != end; ++slot) {
        double const value = y(*slot);
        if (value < low || std::isnan(low)) {
            low = value;
            lowest = slot;
        }
        if (value >= high || std::isnan(high)) {
            high = value;
            highest = slot;
        }
    }
    std::array<std::int64_t, 4> outline = {*first, *lowest, *highest, *(end - 1)};
    std::sort(outline.begin(), outline.end());
    return outline;
}

std::vector<std::int64_t> thinned(std::vector<std::int64_t> const& slots, Values const& y)
{
    auto const count = static_cast<std::int64_t>(slots.size());
    if (count <= largestCount)
        return slots;
    std::int64_t const length = count / (largestCount / 4) + 1;
    std::vector<std::array<std::int64_t, 4>> outlines(static_cast<std::size_t>((count + length - 1) / length));
    kernel::parallelFor(static_cast<std::int64_t>(outlines.size()),
                        [&](std::int64_t first, std::int64_t last, std::int64_t) {
                            for (std::int64_t n = first; n < last; ++n) {
                                std::int64_t const* const stretch = slots.data() + n * length;
                                outlines[static_cast<std::size_t>(n)] =
                                    outlineOf(stretch, stretch + std::min(length, count - n * length), y);
                            }
                        });
    std::vector<std::int64_t> kept;
    kept.reserve(4 * outlines.size());
    for (std::array<std::int64_t, 4> const& outline : outlines)
        std::unique_copy(outline.begin(), outline.end(), std::back_inserter(kept));
    return kept;
}

} // namespace

double LinePoints::number(vtkTable& points, vtkIdType row, vtkIdType column)
{
    return static_cast<vtkDoubleArray*>(points.GetColumn(column))->GetValue(row);
}

LinePoints LinePoints::create(kernel::DataSet const& dataSet, int zoneNumber, int x, int y, Indices const& indices,
                              std::array<bool, 2> isLogarithmic)
{
    kernel::Zone const& zone = *dataSet.zone(zoneNumber);
    kernel::Field const& xField = *dataSet.field(zoneNumber, x);
    kernel::Field const& yField = *dataSet.field(zoneNumber, y);
    bool const mixed = xField.location() != yField.location();
    bool const isLine = zone.isOrdered() && zone.j == 1 && zone.k == 1;
    if (mixed && !isLine)
        return {};

    bool const inCells = mixed || xField.location() == ValueLocation_CellCentered;
    ValueLocation_e const location = inCells ? ValueLocation_CellCentered : ValueLocation_Nodal;
    std::array<Values, 2> const values{visible(zone, location, valuesAt(xField, inCells)),
                                       visible(zone, location, valuesAt(yField, inCells))};
    Values const xPlaces = placesOf(values[0], isLogarithmic[0]);
    Values const yPlaces = placesOf(values[1], isLogarithmic[1]);
    std::vector<std::int64_t> const allSlots = slotsOf(zone, location, indices);
    std::vector<std::int64_t> const slots = thinned(allSlots, yPlaces);

    LinePoints points;
    points.table = vtkSmartPointer<vtkTable>::New();
    points.table->AddColumn(columnOf("x", slots, xPlaces));
    points.table->AddColumn(columnOf("y", slots, yPlaces));
    points.table->AddColumn(columnOf("x value", slots, values[0]));
    points.table->AddColumn(columnOf("y value", slots, values[1]));
    points.notPositive = countNotPositive(allSlots, values, isLogarithmic);
    return points;
}

} // namespace veldraw::app

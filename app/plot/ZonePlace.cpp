#include "app/plot/ZonePlace.h"

#include "kernel/mesh/MixedValue.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace veldraw::app {

namespace {

constexpr double nowhere = std::numeric_limits<double>::quiet_NaN();

kernel::Field const* fieldOf(kernel::Zone const& zone, int variable)
{
    auto const position = static_cast<std::size_t>(variable) - 1;
    return variable > 0 && position < zone.fields.size() ? &zone.fields[position] : nullptr;
}

} // namespace

bool hasPlace(kernel::Zone const& zone, ZonePlace const& place)
{
    std::int64_t const points = zone.pointCount();
    return zone.id == place.zone && !place.points.empty() && place.cell < zone.valueCount(ValueLocation_CellCentered) &&
           std::all_of(place.points.begin(), place.points.end(),
                       [points](kernel::WeightedPoint const& corner) { return corner.point < points; });
}

PlaceValue valueAt(kernel::Zone const& zone, int variable, ZonePlace const& place)
{
    kernel::Field const* const field = fieldOf(zone, variable);
    if (!field || field->isPassive())
        return {PlaceValue::State::Passive, 0.0, false};
    bool const isOfCell = field->location() == ValueLocation_CellCentered;
    if (!field->isLoaded())
        return {PlaceValue::State::NotLoaded, nowhere, isOfCell};
    kernel::QuickReader const values(field->group()->buffer());
    if (!isOfCell)
        return {PlaceValue::State::Known, kernel::mixedValue(values, place.points), false};
    return {PlaceValue::State::Known, place.cell < 0 ? nowhere : values.at(place.cell), true};
}

std::array<double, 3> positionOf(kernel::Zone const& zone, ZonePlace const& place, std::array<int, 3> const& axes)
{
    std::array<double, 3> position{};
    for (std::size_t axis = 0; axis < axes.size(); ++axis)
        position[axis] = valueAt(zone, axes[axis], place).value;
    return position;
}

std::int64_t nearestPoint(kernel::Zone const& zone, ZonePlace const& place, std::array<int, 3> const& axes)
{
    std::array<double, 3> const position = positionOf(zone, place, axes);
    std::int64_t nearest = place.points.front().point;
    double least = std::numeric_limits<double>::infinity();
    for (kernel::WeightedPoint const& corner : place.points) {
        std::array<double, 3> const at = positionOf(zone, {zone.id, place.cell, {{corner.point, 1.0}}}, axes);
        double const distance = std::hypot(std::hypot(at[0] - position[0], at[1] - position[1]), at[2] - position[2]);
        if (distance < least) {
            least = distance;
            nearest = corner.point;
        }
    }
    return nearest;
}

} // namespace veldraw::app

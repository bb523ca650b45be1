#include "app/plot/ProbedPlace.h"

namespace veldraw::app {

std::shared_ptr<kernel::Zone const> ProbedPlace::zone() const
{
    auto const data = dataSet.lock();
    int const number = data ? data->zoneNumber(place.zone) : 0;
    auto const found = number > 0 ? data->zone(number) : nullptr;
    return found && hasPlace(*found, place) ? found : nullptr;
}

std::array<int, 3> ProbedPlace::axisVariables() const
{
    std::array<int, 3> numbers{};
    auto const data = dataSet.lock();
    for (std::size_t axis = 0; data && axis < axes.size(); ++axis)
        numbers[axis] = axes[axis] != 0 ? data->variableNumber(axes[axis]) : 0;
    return numbers;
}

std::optional<std::array<double, 3>> ProbedPlace::position() const
{
    auto const found = zone();
    return found ? std::optional(positionOf(*found, place, axisVariables())) : std::nullopt;
}

} // namespace veldraw::app

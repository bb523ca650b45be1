#include "app/plot/ShownZones.h"

#include "kernel/data/TimeStrands.h"

namespace veldraw::app {

namespace {

// A volume with more points is still drawn, since only its outer faces are.
constexpr std::int64_t mostPointsDrawn = 500000000;

} // namespace

bool hasValues(kernel::DataSet const& dataSet, int zone, int variable)
{
    kernel::Field const* const field = dataSet.field(zone, variable);
    return !field || field->isLoaded();
}

std::vector<int> zonesWithPoints(kernel::Frame const& frame)
{
    kernel::DataSet const& dataSet = *frame.dataSet;
    std::vector<int> zones;
    for (int const number : frame.zonesInSight())
        if (dataSet.zone(number)->pointCount() > 0 || dataSet.zone(number)->isDeferred())
            zones.push_back(number);
    return zones;
}

std::vector<int> shownZones(kernel::Frame const& frame, bool inSpace)
{
    std::array<int, 3> const axes = frame.axisVariables();
    std::vector<int> zones;
    for (int const number : zonesWithPoints(frame)) {
        kernel::Zone const& zone = *frame.dataSet->zone(number);
        bool const isSmall = zone.dimensionality() > 2 || zone.pointCount() <= mostPointsDrawn;
        bool const isPlaced = !zone.isDeferred() && hasValues(*frame.dataSet, number, axes[0]) &&
                              hasValues(*frame.dataSet, number, axes[1]) &&
                              (!inSpace || hasValues(*frame.dataSet, number, axes[2]));
        if (isSmall && isPlaced)
            zones.push_back(number);
    }
    return zones;
}

std::vector<int> zonesOfAllMoments(kernel::Frame const& frame, std::vector<int> const& shown)
{
    return kernel::solutionTimes(*frame.dataSet).empty() ? shown : toVector(frame.dataSet->enabledZones());
}

} // namespace veldraw::app

#include "dialogs/spreadsheet/SpreadsheetZone.h"

#include "dialogs/spreadsheet/FieldLocation.h"
#include "platform/vdsdkbase/VelUtilDataValue.h"
#include "platform/vdsdkbase/VelUtilZone.h"
#include "platform/vdsdkcommon/DataSetQueries.h"

#include <algorithm>

namespace veldraw::sdk::ui::propertymanager {

using dialogs::propertybindings::models::knownFieldLocation;

bool isLineOrFiniteElement(int zone)
{
    return getEnabledZones().isMember(zone) && (VelUtilZoneIsFiniteElement(zone) || getZoneOrder(zone) < ZoneOrder_IJ);
}

bool hasMixedValueLocations(int zone, toolbox::Set const& variables)
{
    Set::Members const numbers = variables.members();
    if (numbers.empty())
        return false;
    auto const reference = knownFieldLocation(zone, numbers.front());
    return std::any_of(numbers.begin() + 1, numbers.end(),
                       [zone, reference](int variable) { return knownFieldLocation(zone, variable) != reference; });
}

bool sharesValues(int zone)
{
    if (!getEnabledZones().isMember(zone))
        return false;
    Set::Members const variables = getEnabledVars().members();
    return std::any_of(variables.begin(), variables.end(),
                       [zone](int variable) { return VelUtilDataValueGetShareCount(zone, variable) > 1; });
}

bool loadShape(int zone)
{
    long long i = 0;
    long long j = 0;
    long long k = 0;
    VelUtilZoneGetMetrics(zone, &i, &j, &k, nullptr, nullptr, nullptr);
    if (i == -1 || j == -1 || k == -1)
        VelUtilZoneGetIJK(zone, &i, &j, &k);
    return i != -1 && j != -1 && k != -1;
}

IJKPlanes_e planeOfZone(int zone, IJKPlanes_e chosen)
{
    if (VelUtilZoneIsFiniteElement(zone))
        return IJKPlanes_K;
    switch (getZoneOrder(zone)) {
    case ZoneOrder_I:
    case ZoneOrder_IJ:
        return IJKPlanes_K;
    case ZoneOrder_J:
    case ZoneOrder_JK:
        return IJKPlanes_I;
    case ZoneOrder_K:
    case ZoneOrder_IK:
        return IJKPlanes_J;
    default:
        return chosen;
    }
}

std::string cornerLabelOfZone(int zone, IJKPlanes_e plane)
{
    if (VelUtilZoneIsFiniteElement(zone))
        return "N \\ V";
    switch (getZoneOrder(zone)) {
    case ZoneOrder_I:
        return "I \\ V";
    case ZoneOrder_J:
        return "J \\ V";
    case ZoneOrder_K:
        return "K \\ V";
    default:
        break;
    }
    if (plane == IJKPlanes_I)
        return "J \\ K";
    return plane == IJKPlanes_J ? "I \\ K" : "I \\ J";
}

bool planeLimits(int zone, int variable, PlaneLimits& limits)
{
    if (VelUtilZoneIsFiniteElement(zone))
        return false;
    long long i = 0;
    long long j = 0;
    long long k = 0;
    VelUtilZoneGetIJK(zone, &i, &j, &k);
    auto const location = knownFieldLocation(zone, variable);
    if (!location)
        return false;
    long long const reduction = *location == ValueLocation_CellCentered ? 1 : 0;
    limits = {i - reduction, j - reduction, k - reduction};
    return true;
}

} // namespace veldraw::sdk::ui::propertymanager

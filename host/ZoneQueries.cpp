#include "host/ActiveZones.h"
#include "host/KernelAccess.h"
#include "kernel/session/Session.h"
#include "platform/vdsdkcommon/DataSetQueries.h"

namespace veldraw::sdk {

using host::ActiveZones;
using host::KernelAccess;

namespace {

/// Enabled zones of a frame's data set that @p predicate accepts.
template <typename Predicate>
Set enabledZonesWhere(long long frameID, Predicate predicate)
{
    Set zones;
    auto const dataSet = KernelAccess::dataSetOf(frameID);
    if (!dataSet)
        return zones;
    for (int number : dataSet->enabledZones()) {
        if (predicate(*dataSet->zone(number)))
            zones.add(number);
    }
    return zones;
}

} // namespace

Set getEnabledZones()
{
    return getEnabledZonesForFrame(KernelAccess::activeFrameID());
}

Set getEnabledZonesForFrame(long long frameID)
{
    if (frameID == KernelAccess::activeFrameID())
        return ActiveZones::now().enabledZones();
    auto const dataSet = KernelAccess::dataSetOf(frameID);
    return dataSet ? Set::Take(new Set_s{dataSet->enabledZones()}) : Set(); // not a copy: there may be very many
}

Set getNonLinearEnabledZones()
{
    return getNonLinearEnabledZonesForFrame(KernelAccess::activeFrameID());
}

Set getNonLinearEnabledZonesForFrame(long long frameID)
{
    return enabledZonesWhere(frameID, [](kernel::Zone const& zone) { return zone.dimensionality() > 1; });
}

Set getOrderedLinearZonesForFrame(long long frameID)
{
    return enabledZonesWhere(frameID,
                             [](kernel::Zone const& zone) { return zone.isOrdered() && zone.dimensionality() == 1; });
}

bool isOrderedZone(int zone)
{
    auto const found = KernelAccess::zone(zone);
    return found && found->isOrdered();
}

bool isOrderedVolumeZone(int zone)
{
    auto const found = KernelAccess::zone(zone);
    return found && found->isOrdered() && found->dimensionality() == 3;
}

ZoneOrder_e getZoneOrder(int zone)
{
    auto const found = KernelAccess::zone(zone);
    if (!found)
        return ZoneOrder_I;
    bool const hasI = found->i > 1;
    bool const hasJ = found->j > 1;
    bool const hasK = found->k > 1;
    if (hasI && hasJ)
        return hasK ? ZoneOrder_IJK : ZoneOrder_IJ;
    if (hasK)
        return hasI ? ZoneOrder_IK : hasJ ? ZoneOrder_JK : ZoneOrder_K;
    return hasJ ? ZoneOrder_J : ZoneOrder_I;
}

} // namespace veldraw::sdk

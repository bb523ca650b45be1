#include "dialogs/fourier/FourierZones.h"

#include "dialogs/property/AskedAgain.h"
#include "dialogs/property/CurrentFrame.h"
#include "platform/vdsdkbase/VelUtilDataSet.h"
#include "platform/vdsdkbase/VelUtilFourier.h"
#include "platform/vdsdkbase/VelUtilFrame.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "platform/vdsdkcommon/DataSetQueries.h"

#include <algorithm>

namespace veldraw::sdk::ui::propertymanager {

bool activeFrameHasFourierZone()
{
    AppLock const lock(AppLock::RecordAsUsual);
    if (askedAgain(VelUtilFrameGetCount) <= 0 || !askedAgain(VelUtilDataSetIsAvailable) ||
        askedAgain(VelUtilDataSetGetNumZones) <= 0)
        return false;
    toolbox::Set::Members const zones = getEnabledZonesForFrame(currentFrameID()).members();
    return std::any_of(zones.begin(), zones.end(),
                       [](int zone) { return askedAgain([=] { return VelUtilFourierTransformIsValidZone(zone); }); });
}

toolbox::Set validFourierZonesForFrame(long long frameUniqueId)
{
    toolbox::Set valid;
    AppLock const lock(AppLock::RecordAsUsual);
    if (askedAgain(VelUtilFrameGetCount) <= 0)
        return valid;
    long long const dataSetUniqueId =
        askedAgain([=] { return VelUtilFrameGetDataSetUniqueIDByFrameID(frameUniqueId); });
    if (dataSetUniqueId <= 0 || askedAgain([=] { return VelUtilDataSetGetNumZonesByUniqueID(dataSetUniqueId); }) <= 0)
        return valid;
    for (int const zone : getEnabledZonesForFrame(frameUniqueId).members())
        if (askedAgain([=] { return VelUtilFourierTransformIsValidZoneByDataSetID(dataSetUniqueId, zone); }))
            valid.add(zone);
    return valid;
}

} // namespace veldraw::sdk::ui::propertymanager

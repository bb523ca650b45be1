#include "dialogs/fourier/FourierZones.h"

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
    if (VelUtilFrameGetCount() <= 0 || !VelUtilDataSetIsAvailable() || VelUtilDataSetGetNumZones() <= 0)
        return false;
    toolbox::Set::Members const zones = getEnabledZonesForFrame(VelUtilFrameGetUniqueID()).members();
    return std::any_of(zones.begin(), zones.end(), &VelUtilFourierTransformIsValidZone);
}

toolbox::Set validFourierZonesForFrame(long long frameUniqueId)
{
    toolbox::Set valid;
    AppLock const lock(AppLock::RecordAsUsual);
    if (VelUtilFrameGetCount() <= 0)
        return valid;
    long long const dataSetUniqueId = VelUtilFrameGetDataSetUniqueIDByFrameID(frameUniqueId);
    if (dataSetUniqueId <= 0 || VelUtilDataSetGetNumZonesByUniqueID(dataSetUniqueId) <= 0)
        return valid;
    for (int const zone : getEnabledZonesForFrame(frameUniqueId).members())
        if (VelUtilFourierTransformIsValidZoneByDataSetID(dataSetUniqueId, zone))
            valid.add(zone);
    return valid;
}

} // namespace veldraw::sdk::ui::propertymanager

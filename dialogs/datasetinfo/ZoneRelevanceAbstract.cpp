#include "dialogs/datasetinfo/ZoneRelevanceAbstract.h"

#include "dialogs/datasetinfo/ZoneVarInfoStateChange.h"
#include "dialogs/property/CurrentFrame.h"
#include "platform/vdsdkbase/VelUtilZone.h"
#include "platform/vdsdkcommon/AppLock.h"

namespace veldraw::sdk::ui::propertymanager {

ZoneRelevanceAbstract::ZoneRelevanceAbstract(Selection const& selectedZones)
    : PropertyDependentRelevanceAbstract<std::set<int>>(selectedZones)
    , m_performer([this] { signalRelevanceChanged(); }, isZoneVarInfoStateChange)
{
}

ZoneRelevanceAbstract::~ZoneRelevanceAbstract() = default;

bool ZoneRelevanceAbstract::isRelevantValue(std::set<int> const& zones) const
{
    if (zones.empty())
        return false;
    AppLock const lock(AppLock::RecordAsUsual);
    return currentFrameHasDataSet() && VelUtilZoneIsEnabled(*zones.begin()) && isRelevantZone(*zones.begin());
}

} // namespace veldraw::sdk::ui::propertymanager

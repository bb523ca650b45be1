#include "dialogs/datasetinfo/ZoneKDimensionRelevance.h"

#include "dialogs/datasetinfo/ZoneDimensionLabelProperties.h"
#include "platform/vdsdkbase/VelUtilZone.h"

namespace veldraw::sdk::ui::propertymanager {

ZoneKDimensionRelevance::ZoneKDimensionRelevance(Selection const& selectedZones)
    : ZoneRelevanceAbstract(selectedZones)
{
}

ZoneKDimensionRelevance::~ZoneKDimensionRelevance() = default;

bool ZoneKDimensionRelevance::isRelevantZone(int zone) const
{
    return ZoneDimensionLabelProperties::hasThird(VelUtilZoneGetType(zone));
}

} // namespace veldraw::sdk::ui::propertymanager

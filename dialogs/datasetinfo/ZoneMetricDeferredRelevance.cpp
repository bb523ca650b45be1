#include "dialogs/datasetinfo/ZoneMetricDeferredRelevance.h"

#include "dialogs/datasetinfo/ZoneDimensionLabelProperties.h"
#include "dialogs/datasetinfo/ZoneDimensionProperties.h"
#include "platform/vdsdkbase/VelUtilZone.h"

namespace veldraw::sdk::ui::propertymanager {

ZoneMetricDeferredRelevance::ZoneMetricDeferredRelevance(Selection const& selectedZones, std::size_t place)
    : ZoneRelevanceAbstract(selectedZones)
    , m_place(place)
{
}

ZoneMetricDeferredRelevance::~ZoneMetricDeferredRelevance() = default;

bool ZoneMetricDeferredRelevance::isRelevantZone(int zone) const
{
    if (m_place == 2 && !ZoneDimensionLabelProperties::hasThird(VelUtilZoneGetType(zone)))
        return false;
    return ZoneDimensionProperties::ofZone(zone).at(m_place) == -1;
}

} // namespace veldraw::sdk::ui::propertymanager

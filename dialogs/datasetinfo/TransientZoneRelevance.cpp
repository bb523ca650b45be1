#include "dialogs/datasetinfo/TransientZoneRelevance.h"

#include "dialogs/datasetinfo/ZoneTimeProperties.h"
#include "platform/vdsdkbase/VelUtilZone.h"

namespace veldraw::sdk::ui::propertymanager {

TransientZoneRelevance::TransientZoneRelevance(Selection const& selectedZones)
    : ZoneRelevanceAbstract(selectedZones)
{
}

TransientZoneRelevance::~TransientZoneRelevance() = default;

bool TransientZoneRelevance::isRelevantZone(int zone) const
{
    return ZoneTimeProperties::isStrand(VelUtilZoneGetStrandID(zone));
}

} // namespace veldraw::sdk::ui::propertymanager

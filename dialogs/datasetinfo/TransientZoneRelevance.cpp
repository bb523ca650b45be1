#include "dialogs/datasetinfo/TransientZoneRelevance.h"

#include "dialogs/datasetinfo/ZoneTimeProperties.h"

namespace veldraw::sdk::ui::propertymanager {

TransientZoneRelevance::TransientZoneRelevance(Selection const& selectedZones)
    : ZoneRelevanceAbstract(selectedZones)
{
}

TransientZoneRelevance::~TransientZoneRelevance() = default;

bool TransientZoneRelevance::isRelevantZone(int zone) const
{
    return ZoneTimeProperties::isStrand(ZoneTimeProperties::strandOf(zone));
}

} // namespace veldraw::sdk::ui::propertymanager

#pragma once

#include "dialogs/datasetinfo/ZoneRelevanceAbstract.h"

namespace veldraw::sdk::ui::propertymanager {

/// True while the selected zone belongs to a time strand.
class TransientZoneRelevance : public ZoneRelevanceAbstract
{
public:
    explicit TransientZoneRelevance(Selection const& selectedZones);
    ~TransientZoneRelevance() override;

private:
    bool isRelevantZone(int zone) const override;
};

} // namespace veldraw::sdk::ui::propertymanager

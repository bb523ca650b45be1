#pragma once

#include "dialogs/datasetinfo/ZoneRelevanceAbstract.h"

namespace veldraw::sdk::ui::propertymanager {

/// True while the selected zone has a third dimension: it is ordered, or its cells have faces.
class ZoneKDimensionRelevance : public ZoneRelevanceAbstract
{
public:
    explicit ZoneKDimensionRelevance(Selection const& selectedZones);
    ~ZoneKDimensionRelevance() override;

private:
    bool isRelevantZone(int zone) const override;
};

} // namespace veldraw::sdk::ui::propertymanager

#pragma once

#include "dialogs/datasetinfo/ZoneRelevanceAbstract.h"

#include <cstddef>

namespace veldraw::sdk::ui::propertymanager {

/// True while a dimension of the selected zone is not known yet. Asking loads nothing. A third dimension that zones of its type do not
/// have is not waited for.
class ZoneMetricDeferredRelevance : public ZoneRelevanceAbstract
{
public:
    /// @param place of the dimension: 0, 1 or 2
    ZoneMetricDeferredRelevance(Selection const& selectedZones, std::size_t place);
    ~ZoneMetricDeferredRelevance() override;

private:
    bool isRelevantZone(int zone) const override;

    std::size_t const m_place;
};

} // namespace veldraw::sdk::ui::propertymanager

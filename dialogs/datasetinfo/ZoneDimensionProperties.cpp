#include "dialogs/datasetinfo/ZoneDimensionProperties.h"

#include "platform/vdsdkbase/VelUtilZone.h"

#include <boost/make_shared.hpp>

namespace veldraw::sdk::ui::propertymanager {

ZoneDimensionProperties::ZoneDimensionProperties(Selection const& selectedZones)
    : ZonePropertyAbstract(selectedZones)
{
    for (auto& dimension : m_dimensions)
        dimension = boost::make_shared<Property<long long>>(-1);
    refresh();
}

ZoneDimensionProperties::~ZoneDimensionProperties() = default;

ZoneDimensionProperties::Dimensions ZoneDimensionProperties::ofZone(int zone)
{
    Dimensions known{-1, -1, -1};
    VelUtilZoneGetMetrics(zone, &known[0], &known[1], &known[2], nullptr, nullptr, nullptr);
    return known;
}

void ZoneDimensionProperties::update(int zone)
{
    Dimensions const known = ofZone(zone);
    for (std::size_t place = 0; place < known.size(); ++place)
        m_dimensions[place]->setValue(known[place]);
}

} // namespace veldraw::sdk::ui::propertymanager

#include "dialogs/datasetinfo/ZoneDimensionLabelProperties.h"

#include "platform/vdsdkbase/VelUtilZone.h"

#include <boost/make_shared.hpp>

namespace veldraw::sdk::ui::propertymanager {

namespace {

using DimensionLabels = std::array<char const*, 3>;

constexpr DimensionLabels indexLabels{"IMax:", "JMax:", "KMax:"};
constexpr DimensionLabels elementLabels{"Pts:", "Elem:", ""};
constexpr DimensionLabels faceLabels{"Pts:", "Elem:", "Faces:"};

// Null for a type that there are no labels for.
DimensionLabels const* labelsOfType(int zoneType)
{
    if (zoneType == ZoneType_Ordered)
        return &indexLabels;
    if (zoneType < ZoneType_Ordered || zoneType > ZoneType_FEMixed)
        return nullptr;
    return ZoneDimensionLabelProperties::hasThird(zoneType) ? &faceLabels : &elementLabels;
}

} // namespace

ZoneDimensionLabelProperties::ZoneDimensionLabelProperties(Selection const& selectedZones)
    : ZonePropertyAbstract(selectedZones)
{
    for (std::size_t place = 0; place < m_labels.size(); ++place)
        m_labels[place] = boost::make_shared<UILocalStyleProperty<std::string>>(indexLabels[place]);
    refresh();
}

ZoneDimensionLabelProperties::~ZoneDimensionLabelProperties() = default;

bool ZoneDimensionLabelProperties::hasThird(int zoneType)
{
    return zoneType == ZoneType_Ordered || zoneType == ZoneType_FEPolygon || zoneType == ZoneType_FEPolyhedron;
}

void ZoneDimensionLabelProperties::update(int zone)
{
    DimensionLabels const* const labels = labelsOfType(VelUtilZoneGetType(zone));
    for (std::size_t place = 0; labels && place < m_labels.size(); ++place)
        m_labels[place]->setValue((*labels)[place]);
}

} // namespace veldraw::sdk::ui::propertymanager

#include "dialogs/datasetinfo/ZoneTypeProperty.h"

#include "platform/vdsdkbase/VelUtilZone.h"
#include "platform/vdsdkcommon/AppLock.h"

#include <utility>

namespace veldraw::sdk::ui::propertymanager {

namespace {

// Null for a type that there is no text for.
char const* zoneTypeText(int type)
{
    switch (type) {
    case ZoneType_Ordered:
        return "Ordered";
    case ZoneType_FETriangle:
        return "FE - Triangle";
    case ZoneType_FEQuad:
        return "FE - Quad";
    case ZoneType_FETetra:
        return "FE - Tetra";
    case ZoneType_FEBrick:
        return "FE - Brick";
    case ZoneType_FELineSeg:
        return "FE - LineSeg";
    case ZoneType_FEPolygon:
        return "FE - Polygon";
    case ZoneType_FEPolyhedron:
        return "FE - Polyhedron";
    case ZoneType_FEMixed:
        return "FE - Mixed";
    default:
        return nullptr;
    }
}

} // namespace

ZoneTypeProperty::ZoneTypeProperty(Selection const& selectedZones,
                                   boost::shared_ptr<UILocalStyleProperty<std::string>> text)
    : ZonePropertyAbstract(selectedZones)
    , m_text(std::move(text))
{
    refresh();
}

ZoneTypeProperty::~ZoneTypeProperty() = default;

void ZoneTypeProperty::update(int zone)
{
    AppLock const lock(AppLock::RecordAsUsual);
    if (char const* const text = zoneTypeText(VelUtilZoneGetType(zone)))
        m_text->setValue(text);
}

} // namespace veldraw::sdk::ui::propertymanager

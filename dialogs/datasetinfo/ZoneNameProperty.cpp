#include "dialogs/datasetinfo/ZoneNameProperty.h"

#include "platform/vdsdkbase/VelUtilFrame.h"
#include "platform/vdsdkcommon/Names.h"

namespace veldraw::sdk::ui::propertymanager {

ZoneNameProperty::ZoneNameProperty(Selection const& selectedZones)
    : ZonePropertyAbstract(selectedZones)
{
    refresh();
}

ZoneNameProperty::~ZoneNameProperty() = default;

void ZoneNameProperty::update(int zone)
{
    long long const frame = VelUtilFrameGetUniqueID();
    m_name.id->setValue(zoneUniqueIDForFrame(frame, zone));
    m_name.text->setValue(zoneNameForFrame(frame, zone));
}

} // namespace veldraw::sdk::ui::propertymanager

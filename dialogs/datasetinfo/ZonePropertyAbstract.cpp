#include "dialogs/datasetinfo/ZonePropertyAbstract.h"

#include "dialogs/datasetinfo/ZoneVarInfoStateChange.h"
#include "dialogs/property/CurrentFrame.h"
#include "platform/vdsdkbase/VelUtilZone.h"
#include "platform/vdsdkcommon/AppLock.h"

namespace veldraw::sdk::ui::propertymanager {

ZonePropertyAbstract::ZonePropertyAbstract(Selection const& selectedZones)
    : m_selectedZones(selectedZones)
    , m_performer([this] { refresh(); }, isZoneVarInfoStateChange)
{
    follow(*m_selectedZones);
}

ZonePropertyAbstract::~ZonePropertyAbstract() = default;

void ZonePropertyAbstract::follow(PropertyAbstract<std::set<int>> const& selection)
{
    m_connections.add(selection.connectValueChanged([this](std::set<int> const&) { refresh(); }));
}

void ZonePropertyAbstract::refresh()
{
    std::set<int> const zones = m_selectedZones->value();
    if (zones.empty())
        return;
    AppLock const lock(AppLock::RecordAsUsual);
    if (currentFrameHasDataSet() && VelUtilZoneIsEnabled(*zones.begin()))
        update(*zones.begin());
}

} // namespace veldraw::sdk::ui::propertymanager

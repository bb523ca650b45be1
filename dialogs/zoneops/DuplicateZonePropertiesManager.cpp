#include "dialogs/zoneops/DuplicateZonePropertiesManager.h"

#include "dialogs/bindings/ScopedExitAction.h"
#include "platform/vdsdkbase/VelUtilArgList.h"
#include "platform/vdsdkbase/VelUtilDialog.h"
#include "platform/vdsdkbase/VelUtilZone.h"
#include "platform/vdsdkcommon/ActionReporter.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "platform/vdsdkcommon/DataSetQueries.h"
#include "platform/vdsdkcommon/WaitState.h"
#include "platform/vdtoolbox/Set.h"

#include <boost/make_shared.hpp>

namespace veldraw::sdk::ui::propertymanager {

namespace {

bool copyZones(toolbox::Set const& zones)
{
    ArgList_s* arguments = VelUtilArgListAlloc();
    dialogs::propertybindings::ScopedExitAction const release([&arguments] { VelUtilArgListDealloc(&arguments); });
    if (!arguments)
        return false;
    if (!VelUtilArgListAppendSet(arguments, "SourceZones", zones.getRef()))
        return false;
    return VelUtilZoneCopyX(arguments);
}

} // namespace

DuplicateZonePropertiesManager::DuplicateZonePropertiesManager()
    : m_sourceZones(boost::make_shared<Property<std::set<int>>>())
    , m_zonesListModel(boost::make_shared<ZonesListModel>(getEnabledZonesForFrame, false))
{
}

DuplicateZonePropertiesManager::~DuplicateZonePropertiesManager() = default;

boost::shared_ptr<Property<std::set<int>>> DuplicateZonePropertiesManager::sourceZones() const
{
    return m_sourceZones;
}

boost::shared_ptr<DuplicateZonePropertiesManager::ZonesListModel> DuplicateZonePropertiesManager::zonesListModel() const
{
    return m_zonesListModel;
}

void DuplicateZonePropertiesManager::createDuplicateZones()
{
    AppLock const lock(AppLock::RecordAsUsual);
    if (m_sourceZones->value().empty()) {
        VelUtilDialogErrMsg("No zones are selected");
        return;
    }
    WaitState const busy;
    toolbox::Set const zones(m_sourceZones->value());
    velUtilActionReporter([&zones] { return static_cast<char>(copyZones(zones)); }, "Error duplicating zone(s)",
                          "Duplicate zone(s) created");
}

} // namespace veldraw::sdk::ui::propertymanager

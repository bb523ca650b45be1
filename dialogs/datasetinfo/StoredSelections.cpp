#include "dialogs/datasetinfo/StoredSelections.h"

#include "platform/vdsdkbase/VelUtilVar.h"
#include "platform/vdsdkbase/VelUtilZone.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "platform/vdsdkcommon/DataSetQueries.h"

namespace veldraw::dialogs::data {

using sdk::ui::propertymanager::ZoneVarInfoPropertiesManager;
using toolbox::Set;

namespace {

struct RememberedSelections
{
    std::set<int> zones;
    std::set<int> variables;
};

RememberedSelections& remembered()
{
    static RememberedSelections selections;
    return selections;
}

void removeDisabled(std::set<int>& numbers, bool (*isEnabled)(int))
{
    for (auto number = numbers.begin(); number != numbers.end();)
        number = isEnabled(*number) ? std::next(number) : numbers.erase(number);
}

std::set<int> lowestOf(Set const& numbers)
{
    Set::Members const members = numbers.members();
    return members.empty() ? std::set<int>() : std::set<int>{members.front()};
}

std::set<int> defaultZone()
{
    std::set<int> const active = lowestOf(sdk::getActiveZones());
    return active.empty() ? lowestOf(sdk::getEnabledZones()) : active;
}

void startWithEnabled(RememberedSelections& selections)
{
    sdk::AppLock const lock(sdk::AppLock::RecordAsUsual);
    removeDisabled(selections.zones, &VelUtilZoneIsEnabled);
    removeDisabled(selections.variables, &VelUtilVarIsEnabled);
    if (selections.zones.empty())
        selections.zones = defaultZone();
    if (selections.variables.empty())
        selections.variables = lowestOf(sdk::getEnabledVars());
}

} // namespace

StoredSelections::StoredSelections(ZoneVarInfoPropertiesManager const& manager)
{
    startWithEnabled(remembered());
    manager.selectedZones()->setValue(remembered().zones);
    manager.selectedVars()->setValue(remembered().variables);
    m_connections.add(
        manager.selectedZones()->connectValueChanged([](std::set<int> const& zones) { remembered().zones = zones; }));
    m_connections.add(manager.selectedVars()->connectValueChanged(
        [](std::set<int> const& variables) { remembered().variables = variables; }));
}

StoredSelections::~StoredSelections() = default;

} // namespace veldraw::dialogs::data

#include "dialogs/datasetinfo/StoredSelections.h"

#include "platform/vdsdkbase/VelUtilFrame.h"
#include "platform/vdsdkbase/VelUtilVar.h"
#include "platform/vdsdkbase/VelUtilZone.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "platform/vdsdkcommon/DataSetQueries.h"
#include "platform/vdsdkcommon/Names.h"

#include <map>
#include <new>

namespace veldraw::dialogs::data {

using sdk::ui::propertymanager::ZoneVarInfoPropertiesManager;
using toolbox::Set;

namespace {

// Unique identifiers by number.
using Remembered = std::map<int, long long>;

struct RememberedSelections
{
    Remembered zones;
    Remembered variables;
};

RememberedSelections& remembered()
{
    static RememberedSelections selections;
    return selections;
}

using IDOfNumber = long long (*)(long long frame, int number);

Remembered withIDs(std::set<int> const& numbers, IDOfNumber idOf)
{
    Remembered result;
    for (int const number : numbers)
        result.emplace(number, idOf(VelUtilFrameGetUniqueID(), number));
    return result;
}

std::set<int> stillEnabled(Remembered const& things, bool (*isEnabled)(int), IDOfNumber idOf)
{
    std::set<int> numbers;
    for (auto const& [number, id] : things) {
        if (isEnabled(number) && idOf(VelUtilFrameGetUniqueID(), number) == id)
            numbers.insert(number);
    }
    return numbers;
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

std::set<int> zonesToStartWith()
{
    std::set<int> const zones = stillEnabled(remembered().zones, &VelUtilZoneIsEnabled, &sdk::zoneUniqueIDForFrame);
    return zones.empty() ? defaultZone() : zones;
}

std::set<int> variablesToStartWith()
{
    std::set<int> const variables =
        stillEnabled(remembered().variables, &VelUtilVarIsEnabled, &VelUtilVarGetUniqueIDForFrame);
    return variables.empty() ? lowestOf(sdk::getEnabledVars()) : variables;
}

} // namespace

StoredSelections::StoredSelections(ZoneVarInfoPropertiesManager const& manager)
    : m_manager(manager)
{
    sdk::AppLock const lock(sdk::AppLock::RecordAsUsual);
    manager.selectedZones()->setValue(zonesToStartWith());
    manager.selectedVars()->setValue(variablesToStartWith());
}

// Not at each selection: numbers stay selected when they go to others.
StoredSelections::~StoredSelections()
{
    try {
        sdk::AppLock const lock(sdk::AppLock::RecordAsUsual);
        auto zones = withIDs(m_manager.selectedZones()->value(), &sdk::zoneUniqueIDForFrame);
        remembered().variables = withIDs(m_manager.selectedVars()->value(), &VelUtilVarGetUniqueIDForFrame);
        remembered().zones = std::move(zones);
    } catch (std::bad_alloc const&) {
        // What was remembered before stays.
    }
}

} // namespace veldraw::dialogs::data

#include "platform/vdsdkuicommon/StateChangePredicates.h"

#include "platform/vdsdkbase/StateChange.h"

#include <algorithm>
#include <initializer_list>

namespace veldraw::sdk::ui::common {

namespace {

bool isOneOf(StateChangeEventInterface const& event, std::initializer_list<StateChange_e> kinds)
{
    return std::find(kinds.begin(), kinds.end(), event.kind()) != kinds.end();
}

bool isStyleChange(StateChangeEventInterface const& event, std::initializer_list<char const*> topLevelNames)
{
    if (event.kind() != StateChange_Style || !event.hasStyleParam())
        return false;
    std::string const name = event.styleParam(1);
    return std::find(topLevelNames.begin(), topLevelNames.end(), name) != topLevelNames.end();
}

} // namespace

bool isDataRelatedStateChange(StateChangeEventInterface const& event)
{
    // Another frame shows other data.
    return isNewActiveFrameStateChange(event) ||
           isOneOf(event, {StateChange_ValuesAltered, StateChange_VariablesAdded, StateChange_VariablesDeleted,
                           StateChange_VariablesEnabled, StateChange_ZonesAdded, StateChange_ZonesDeleted,
                           StateChange_ZonesEnabled, StateChange_FrameDataSet, StateChange_VariablesRenamed,
                           StateChange_ZonesRenamed, StateChange_VariablesLoaded, StateChange_SharingChanged,
                           StateChange_ZoneMetricsLoaded});
}

bool isZoneStateChange(StateChangeEventInterface const& event)
{
    return isOneOf(event, {StateChange_ZonesAdded, StateChange_ZonesDeleted, StateChange_ZonesEnabled,
                           StateChange_ZonesRenamed, StateChange_ZoneMetricsLoaded});
}

bool isVariableStateChange(StateChangeEventInterface const& event)
{
    return isOneOf(event, {StateChange_VariablesAdded, StateChange_VariablesDeleted, StateChange_VariablesEnabled,
                           StateChange_VariablesRenamed, StateChange_VariablesLoaded, StateChange_SharingChanged});
}

bool isZoneOrActiveFrameStateChange(StateChangeEventInterface const& event)
{
    return isZoneStateChange(event) || isNewActiveFrameStateChange(event) || isOneOf(event, {StateChange_FrameDataSet});
}

bool isNewActiveFrameStateChange(StateChangeEventInterface const& event)
{
    return isOneOf(event, {StateChange_NewActiveFrame, StateChange_PageReplaced, StateChange_StateRestored});
}

bool isPlotTypeStateChange(StateChangeEventInterface const& event)
{
    return isStyleChange(event, {"PlotType"}) || isOneOf(event, {StateChange_FrameDataSet}) ||
           isNewActiveFrameStateChange(event);
}

bool isFieldStyleStateChange(StateChangeEventInterface const& event)
{
    return isStyleChange(event, {"ActiveFieldMaps", "ActiveFieldZones", "FieldMap", "FieldLayers"});
}

// Values and sharing stay out: one cell's edit would otherwise rebuild whatever shows the cells.
bool engineStateChanged(StateChangeEventInterface const& event)
{
    return isPlotTypeStateChange(event) ||
           isOneOf(event, {StateChange_VariablesAdded, StateChange_VariablesDeleted, StateChange_VariablesEnabled,
                           StateChange_ZonesAdded, StateChange_ZonesDeleted, StateChange_ZonesEnabled,
                           StateChange_FrameCreated, StateChange_FrameDeleted, StateChange_VariablesRenamed,
                           StateChange_ZonesRenamed, StateChange_VariablesLoaded, StateChange_ZoneMetricsLoaded});
}

} // namespace veldraw::sdk::ui::common

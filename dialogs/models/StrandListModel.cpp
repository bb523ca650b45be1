#include "dialogs/models/StrandListModel.h"

#include "platform/vdsdkbase/VelUtilFieldMap.h"
#include "platform/vdsdkbase/VelUtilZone.h"
#include "platform/vdsdkcommon/DataSetQueries.h"
#include "platform/vdsdkcommon/Names.h"

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

namespace {

// What the kernel answers for a zone that belongs to no strand.
constexpr int noStrand = 2147483646;

toolbox::Set fieldMaps(long long)
{
    return getActiveFieldMaps();
}

std::string fieldMapName(long long frame, int fieldMap)
{
    Set_s* handle = nullptr;
    if (!VelUtilFieldMapGetZones(fieldMap, &handle))
        return std::string();
    toolbox::Set::Members const zones = toolbox::Set::Take(handle).members();
    if (zones.empty())
        return std::string();
    std::string const name = zoneNameForFrame(frame, zones.front());
    int const strand = VelUtilZoneGetStrandID(zones.front());
    return strand == noStrand ? name : name + " (strand " + std::to_string(strand) + ")";
}

} // namespace

StrandListModel::StrandListModel()
    : ZoneVarListModelAbstract(&fieldMaps, nullptr, &fieldMapName, IDOf(), StateChange_ZonesRenamed, Rename())
{
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models

#include "dialogs/models/StrandListModel.h"

#include "dialogs/property/AskedAgain.h"
#include "platform/vdsdkbase/VelUtilDataSet.h"
#include "platform/vdsdkbase/VelUtilZone.h"
#include "platform/vdsdkcommon/DataSetQueries.h"
#include "platform/vdsdkcommon/Names.h"

#include <boost/make_shared.hpp>
#include <boost/shared_ptr.hpp>

#include <cstddef>
#include <map>
#include <vector>

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

using propertymanager::askedAgain;

namespace {

// Strands count from 0; the kernel answers this number for a zone that belongs to none.
constexpr int noStrand = 2147483646;

bool isStrand(int strand)
{
    return strand >= 0 && strand < noStrand;
}

int strandOf(int zone)
{
    return askedAgain([=] { return VelUtilZoneGetStrandID(zone); });
}

/// The lowest enabled zone of each field map, 0 where there is none, by the numbers of the maps: one a strand and one a zone
/// on its own, in the order of their lowest zones. One walk over the zones; asking the kernel map by map would be one each.
std::vector<int> lowestEnabledZones()
{
    std::vector<int> zones;
    std::map<int, std::size_t> places;
    int const count = askedAgain(VelUtilDataSetGetNumZones);
    for (int zone = 1; zone <= count; ++zone) {
        int const strand = strandOf(zone);
        std::size_t const place =
            isStrand(strand) ? places.try_emplace(strand, zones.size()).first->second : zones.size();
        if (place == zones.size())
            zones.push_back(0);
        if (zones[place] == 0 && askedAgain([=] { return VelUtilZoneIsEnabled(zone); }))
            zones[place] = zone;
    }
    return zones;
}

/// Names the field maps that it has read last.
class FieldMapNames
{
public:
    toolbox::Set read()
    {
        m_lowestZones = lowestEnabledZones();
        return getActiveFieldMaps();
    }

    std::string name(long long frame, int fieldMap) const
    {
        int const zone = m_lowestZones.at(static_cast<std::size_t>(fieldMap) - 1);
        std::string const zoneName = zoneNameForFrame(frame, zone);
        int const strand = strandOf(zone);
        return isStrand(strand) ? zoneName + " (strand " + std::to_string(strand) + ")" : zoneName;
    }

private:
    std::vector<int> m_lowestZones;
};

ZoneVarListModelAbstract::Source sourceOf(boost::shared_ptr<FieldMapNames> const& maps)
{
    return [maps](long long) { return maps->read(); };
}

ZoneVarListModelAbstract::Name nameOf(boost::shared_ptr<FieldMapNames> const& maps)
{
    return [maps](long long frame, int fieldMap) { return maps->name(frame, fieldMap); };
}

} // namespace

StrandListModel::StrandListModel()
    : StrandListModel(boost::make_shared<FieldMapNames>())
{
}

template <typename Maps>
StrandListModel::StrandListModel(boost::shared_ptr<Maps> const& maps)
    : ZoneVarListModelAbstract(sourceOf(maps), nullptr, nameOf(maps), IDOf(), StateChange_ZonesRenamed, Rename())
{
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models

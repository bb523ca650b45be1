#include "dialogs/models/ZoneListModelGroupableByStrand.h"

#include "dialogs/models/StrandListModel.h"
#include "dialogs/models/ZoneListModel.h"
#include "platform/vdsdkcommon/DataSetQueries.h"

#include <boost/make_shared.hpp>

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

namespace {

// Only the list that is shown exists, so that the other one costs nothing when the kernel's data changes.
boost::shared_ptr<ListModelInterface<int>> zonesOrStrands(bool grouped)
{
    if (grouped)
        return boost::make_shared<StrandListModel>();
    return boost::make_shared<ZoneListModel>(&getEnabledZonesForFrame, false);
}

} // namespace

ZoneListModelGroupableByStrand::ZoneListModelGroupableByStrand()
    : ListModelProxy<int>(zonesOrStrands(false))
    , m_groupByTimeStrand(boost::make_shared<Property<bool>>(false))
{
    m_connections.add(m_groupByTimeStrand->connectValueChanged([this](bool grouped) { groupingChanged(grouped); }));
}

ZoneListModelGroupableByStrand::~ZoneListModelGroupableByStrand() = default;

boost::shared_ptr<PropertyAbstract<bool>> ZoneListModelGroupableByStrand::groupByTimeStrand() const
{
    return m_groupByTimeStrand;
}

void ZoneListModelGroupableByStrand::groupingChanged(bool grouped)
{
    setModel(zonesOrStrands(grouped));
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models

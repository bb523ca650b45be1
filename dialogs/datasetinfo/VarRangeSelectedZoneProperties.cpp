#include "dialogs/datasetinfo/VarRangeSelectedZoneProperties.h"

#include "dialogs/datasetinfo/NumberProperty.h"
#include "platform/vdsdkcommon/DataSetQueries.h"

#include <boost/make_shared.hpp>

namespace veldraw::sdk::ui::propertymanager {

VarRangeSelectedZoneProperties::VarRangeSelectedZoneProperties(Selection const& selectedZones,
                                                               Selection const& selectedVars)
    : VarPropertyAbstract(selectedZones, selectedVars)
    , m_min(boost::make_shared<UILocalStyleProperty<double>>(0.0))
    , m_max(boost::make_shared<UILocalStyleProperty<double>>(0.0))
{
    refresh();
}

VarRangeSelectedZoneProperties::~VarRangeSelectedZoneProperties() = default;

void VarRangeSelectedZoneProperties::updateInZone(int zone, int var)
{
    double min = 0.0;
    double max = 0.0;
    if (!getVarMinMaxForZone(var, zone, false, min, max))
        return;
    setNumber(*m_min, min);
    setNumber(*m_max, max);
}

} // namespace veldraw::sdk::ui::propertymanager

#include "dialogs/datasetinfo/VarRangeSelectedMinOrMaxLabelProperty.h"

#include "platform/vdsdkbase/VelUtilVar.h"

#include <boost/make_shared.hpp>

namespace veldraw::sdk::ui::propertymanager {

VarRangeSelectedMinOrMaxLabelProperty::VarRangeSelectedMinOrMaxLabelProperty(Selection const& selectedZones,
                                                                             Selection const& selectedVars,
                                                                             RangeLimit limit)
    : VarPropertyAbstract(selectedZones, selectedVars)
    , m_limit(limit)
    , m_text(boost::make_shared<UILocalStyleProperty<std::string>>(rangeLimitLabel(limit, false)))
{
    refresh();
}

VarRangeSelectedMinOrMaxLabelProperty::~VarRangeSelectedMinOrMaxLabelProperty() = default;

void VarRangeSelectedMinOrMaxLabelProperty::updateInZone(int zone, int var)
{
    bool const isEstimated = VelUtilVarRangeIsEstimated(zone, var) && VelUtilVarIsSZLData(zone, var);
    m_text->setValue(rangeLimitLabel(m_limit, isEstimated));
}

} // namespace veldraw::sdk::ui::propertymanager

#include "dialogs/datasetinfo/VarRangeActiveMinOrMaxLabelProperty.h"

#include "platform/vdsdkcommon/DataSetQueries.h"

#include <boost/make_shared.hpp>

namespace veldraw::sdk::ui::propertymanager {

VarRangeActiveMinOrMaxLabelProperty::VarRangeActiveMinOrMaxLabelProperty(Selection const& selectedZones,
                                                                         Selection const& selectedVars,
                                                                         RangeLimit limit)
    : ActiveZonesPropertyAbstract(selectedZones, selectedVars)
    , m_limit(limit)
    , m_text(boost::make_shared<UILocalStyleProperty<std::string>>(rangeLimitLabel(limit, false)))
{
    refresh();
}

VarRangeActiveMinOrMaxLabelProperty::~VarRangeActiveMinOrMaxLabelProperty() = default;

bool VarRangeActiveMinOrMaxLabelProperty::updateInActiveZones(int var)
{
    m_text->setValue(rangeLimitLabel(m_limit, isVarRangeEstimatedForAnyActiveZones(var)));
    return true;
}

} // namespace veldraw::sdk::ui::propertymanager

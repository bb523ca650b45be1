#include "dialogs/datasetinfo/VarRangeActiveMinOrMaxLabelProperty.h"

#include <boost/make_shared.hpp>

namespace veldraw::sdk::ui::propertymanager {

VarRangeActiveMinOrMaxLabelProperty::VarRangeActiveMinOrMaxLabelProperty(
    Selection const& selectedZones, Selection const& selectedVars, RangeLimit limit,
    boost::shared_ptr<ActiveZoneAnswers> const& answers)
    : VarPropertyAbstract(selectedZones, selectedVars)
    , m_limit(limit)
    , m_answers(answers)
    , m_text(boost::make_shared<UILocalStyleProperty<std::string>>(rangeLimitLabel(limit, false)))
{
    refresh();
}

VarRangeActiveMinOrMaxLabelProperty::~VarRangeActiveMinOrMaxLabelProperty() = default;

void VarRangeActiveMinOrMaxLabelProperty::updateInZone(int, int var)
{
    m_text->setValue(rangeLimitLabel(m_limit, m_answers->isRangeEstimated(var)));
}

} // namespace veldraw::sdk::ui::propertymanager

#include "dialogs/property/AngleSpinBoxIncDecCalculator.h"

namespace veldraw::sdk::ui::propertymanager {

AngleSpinBoxIncDecCalculator::AngleSpinBoxIncDecCalculator(
    boost::shared_ptr<PropertyAbstract<ThetaMode_e> const> const& unit)
    : m_unit(unit)
{
}

double AngleSpinBoxIncDecCalculator::delta()
{
    return m_unit->value() == ThetaMode_Radians ? 0.01 : 1.0;
}

} // namespace veldraw::sdk::ui::propertymanager

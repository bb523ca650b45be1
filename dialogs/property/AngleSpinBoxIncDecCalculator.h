#pragma once

#include "dialogs/property/DialogsApi.h"
#include "dialogs/property/PropertyAbstract.h"
#include "dialogs/property/SpinBoxIncDecCalculatorBase.h"

namespace veldraw::sdk::ui::propertymanager {

/// Steps an angle by 1 degree or by 0.01 radians, whichever unit is chosen when the step is made.
class VDSDKDIALOGS_DATA_QT_API AngleSpinBoxIncDecCalculator : public SpinBoxIncDecCalculatorBase
{
public:
    /// Keeps the unit alive.
    explicit AngleSpinBoxIncDecCalculator(boost::shared_ptr<PropertyAbstract<ThetaMode_e> const> const& unit);

protected:
    double delta() override;

private:
    boost::shared_ptr<PropertyAbstract<ThetaMode_e> const> const m_unit;
};

} // namespace veldraw::sdk::ui::propertymanager

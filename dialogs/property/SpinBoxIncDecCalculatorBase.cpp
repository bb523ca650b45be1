#include "dialogs/property/SpinBoxIncDecCalculatorBase.h"

namespace veldraw::sdk::ui::propertymanager {

SpinBoxIncDecCalculatorBase::~SpinBoxIncDecCalculatorBase() = default;

double SpinBoxIncDecCalculatorBase::increment(double value)
{
    return value + delta();
}

double SpinBoxIncDecCalculatorBase::decrement(double value)
{
    return value - delta();
}

double SpinBoxIncDecCalculatorBase::delta()
{
    return 1.0;
}

} // namespace veldraw::sdk::ui::propertymanager

#pragma once

#include "dialogs/property/DialogsApi.h"

namespace veldraw::sdk::ui::propertymanager {

/// Says where one step of a spin box leads. A box without a calculator steps by its own single step.
class VDSDKDIALOGS_DATA_QT_API SpinBoxIncDecCalculatorBase
{
public:
    SpinBoxIncDecCalculatorBase() = default;
    SpinBoxIncDecCalculatorBase(SpinBoxIncDecCalculatorBase const&) = delete;
    SpinBoxIncDecCalculatorBase& operator=(SpinBoxIncDecCalculatorBase const&) = delete;
    virtual ~SpinBoxIncDecCalculatorBase();

    /// The value one step up.
    virtual double increment(double value);
    /// The value one step down.
    virtual double decrement(double value);

protected:
    /// The width of a step: 1 here. Asked anew for each step.
    virtual double delta();
};

} // namespace veldraw::sdk::ui::propertymanager

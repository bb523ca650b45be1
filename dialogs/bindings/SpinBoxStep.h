#pragma once

#include "dialogs/property/SpinBoxIncDecCalculatorBase.h"

namespace veldraw::sdk::ui::dialogs::propertybindings {

/// Some steps of a spin box in one direction.
struct SpinBoxStep
{
    /// Says where each step leads; null: each step has the width @c singleStep.
    propertymanager::SpinBoxIncDecCalculatorBase* calculator;
    double singleStep;
    int count;
    bool isUp;

    /// The value after the steps from @p value; not-a-number stays so. A result that differs only by rounding errors from a
    /// decimal number of 12 digits becomes that number, so that forty steps of 0.01 from 0.1 lead to exactly 0.5.
    double from(double value) const;

private:
    double once(double value) const;
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings

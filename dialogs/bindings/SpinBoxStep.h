#pragma once

#include "dialogs/property/SpinBoxIncDecCalculatorBase.h"

namespace veldraw::sdk::ui::dialogs::propertybindings {

/// A number of steps of a spin box, from a value to where they lead.
struct SpinBoxStep
{
    /// Asked once for each step; null: a step is as wide as the box's own.
    propertymanager::SpinBoxIncDecCalculatorBase* calculator;
    double singleStep;
    int count;
    bool isUp;

    /// Not a number stays what it is. The rounding noise of a sum is taken away where a decimal number of 12 digits is so
    /// near that it must be meant, so that forty steps of 0.01 from 0.1 reach 0.5 and nothing beside it.
    double from(double value) const;

private:
    double once(double value) const;
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings

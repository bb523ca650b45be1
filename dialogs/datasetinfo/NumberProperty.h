#pragma once

#include "dialogs/property/PropertyAbstract.h"

#include <string>

namespace veldraw::sdk::ui::propertymanager {

/// Sets a number that the kernel told. One that is not a number is no news when the property holds such a one already.
void setNumber(PropertyAbstract<double>& property, double number);

/// A number as a stream writes it, with six significant digits: "101325", "1e-30", "nan". Decimal point whatever the locale.
std::string numberText(double number);

} // namespace veldraw::sdk::ui::propertymanager

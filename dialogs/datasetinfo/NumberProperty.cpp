#include "dialogs/datasetinfo/NumberProperty.h"

#include <cmath>
#include <locale>
#include <sstream>

namespace veldraw::sdk::ui::propertymanager {

void setNumber(PropertyAbstract<double>& property, double number)
{
    if (!std::isnan(number) || !std::isnan(property.value()))
        property.setValue(number);
}

std::string numberText(double number)
{
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text << (std::isnan(number) ? std::abs(number) : number); // the sign of one that is not a number means nothing
    return text.str();
}

} // namespace veldraw::sdk::ui::propertymanager

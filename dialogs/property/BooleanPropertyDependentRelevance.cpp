#include "dialogs/property/BooleanPropertyDependentRelevance.h"

#include <utility>

namespace veldraw::sdk::ui::propertymanager {

BooleanPropertyDependentRelevance::BooleanPropertyDependentRelevance(
    boost::shared_ptr<PropertyAbstract<bool> const> property)
    : PropertyDependentRelevance<bool>(std::move(property), true)
{
}

} // namespace veldraw::sdk::ui::propertymanager

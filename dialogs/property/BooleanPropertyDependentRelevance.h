#pragma once

#include "dialogs/property/PropertyDependentRelevance.h"

namespace veldraw::sdk::ui::propertymanager {

/// True while a boolean property is true.
class BooleanPropertyDependentRelevance : public PropertyDependentRelevance<bool>
{
public:
    explicit BooleanPropertyDependentRelevance(boost::shared_ptr<PropertyAbstract<bool> const> property);
};

} // namespace veldraw::sdk::ui::propertymanager

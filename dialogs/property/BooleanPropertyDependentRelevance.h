#pragma once

#include "dialogs/property/DialogsApi.h"
#include "dialogs/property/PropertyDependentRelevance.h"

namespace veldraw::sdk::ui::propertymanager {

/// True while a boolean property is true.
class VDSDKDIALOGS_DATA_QT_API BooleanPropertyDependentRelevance : public PropertyDependentRelevance<bool>
{
public:
    explicit BooleanPropertyDependentRelevance(boost::shared_ptr<PropertyAbstract<bool> const> property);
};

} // namespace veldraw::sdk::ui::propertymanager

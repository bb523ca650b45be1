#include "dialogs/zoneops/RotationAxisTemplates.h"

#include "dialogs/bindings/RadioButtonPropertyBinding.ipp"
#include "dialogs/bindings/UIPropertyBindingAbstract.ipp"
#include "dialogs/property/AllowAnyValueValidator.ipp"
#include "dialogs/property/Property.ipp"
#include "dialogs/property/PropertyAbstract.ipp"
#include "dialogs/property/UIStylePropertyAbstract.ipp"
#include "dialogs/property/ValidatorInterface.ipp"

using veldraw::dialogs::data::AxialRotationPropertiesManager;

namespace veldraw {

template class ValidatorInterface<AxialRotationPropertiesManager::RotationAxis>;
template class AllowAnyValueValidator<AxialRotationPropertiesManager::RotationAxis>;
template class PropertyAbstract<AxialRotationPropertiesManager::RotationAxis>;
template class Property<AxialRotationPropertiesManager::RotationAxis>;

} // namespace veldraw

namespace veldraw::sdk::ui::propertymanager {

template class UIStylePropertyAbstract<AxialRotationPropertiesManager::RotationAxis>;

} // namespace veldraw::sdk::ui::propertymanager

namespace veldraw::sdk::ui::dialogs::propertybindings {

template class UIPropertyBindingAbstract<AxialRotationPropertiesManager::RotationAxis>;
template class RadioButtonPropertyBinding<AxialRotationPropertiesManager::RotationAxis>;

} // namespace veldraw::sdk::ui::dialogs::propertybindings

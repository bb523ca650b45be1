#pragma once

/// @file
/// The templates of properties and bindings for the axis of a rotation, compiled once, in the source of the same name.
/// The framework can't do that: it doesn't know the dialogs, and the axis belongs to one of them.

#include "dialogs/bindings/RadioButtonPropertyBinding.h"
#include "dialogs/property/AllowAnyValueValidator.h"
#include "dialogs/zoneops/AxialRotationPropertiesManager.h"

namespace veldraw {

extern template class ValidatorInterface<dialogs::data::AxialRotationPropertiesManager::RotationAxis>;
extern template class AllowAnyValueValidator<dialogs::data::AxialRotationPropertiesManager::RotationAxis>;
extern template class PropertyAbstract<dialogs::data::AxialRotationPropertiesManager::RotationAxis>;
extern template class Property<dialogs::data::AxialRotationPropertiesManager::RotationAxis>;

} // namespace veldraw

namespace veldraw::sdk::ui::propertymanager {

extern template class UIStylePropertyAbstract<veldraw::dialogs::data::AxialRotationPropertiesManager::RotationAxis>;

} // namespace veldraw::sdk::ui::propertymanager

namespace veldraw::sdk::ui::dialogs::propertybindings {

extern template class UIPropertyBindingAbstract<veldraw::dialogs::data::AxialRotationPropertiesManager::RotationAxis>;
extern template class RadioButtonPropertyBinding<veldraw::dialogs::data::AxialRotationPropertiesManager::RotationAxis>;

} // namespace veldraw::sdk::ui::dialogs::propertybindings

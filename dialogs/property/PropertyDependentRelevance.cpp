#include "dialogs/property/PropertyDependentRelevance.ipp"

namespace veldraw::sdk::ui::propertymanager {

#define VELDRAW_DEFINE(T) template class PropertyDependentRelevance<T>;
VELDRAW_FOR_EACH_RULE_TYPE(VELDRAW_DEFINE)
#undef VELDRAW_DEFINE

} // namespace veldraw::sdk::ui::propertymanager

#include "dialogs/property/PropertyDependentRelevanceAbstract.ipp"

namespace veldraw::sdk::ui::propertymanager {

#define VELDRAW_DEFINE(T) template class PropertyDependentRelevanceAbstract<T>;
VELDRAW_FOR_EACH_RULE_TYPE(VELDRAW_DEFINE)
VELDRAW_DEFINE(std::set<int>)
#undef VELDRAW_DEFINE

} // namespace veldraw::sdk::ui::propertymanager

#include "dialogs/property/UIStylePropertyAbstract.ipp"

namespace veldraw::sdk::ui::propertymanager {

#define VELDRAW_DEFINE(T) template class UIStylePropertyAbstract<T>;
VELDRAW_FOR_EACH_PROPERTY_TYPE(VELDRAW_DEFINE)
#undef VELDRAW_DEFINE

} // namespace veldraw::sdk::ui::propertymanager

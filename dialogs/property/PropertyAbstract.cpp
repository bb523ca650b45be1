#include "dialogs/property/PropertyAbstract.ipp"

namespace veldraw {

#define VELDRAW_DEFINE(T) template class PropertyAbstract<T>;
VELDRAW_FOR_EACH_PROPERTY_TYPE(VELDRAW_DEFINE)
#undef VELDRAW_DEFINE

} // namespace veldraw

#include "dialogs/property/Property.ipp"

namespace veldraw {

#define VELDRAW_DEFINE(T) template class Property<T>;
VELDRAW_FOR_EACH_HELD_TYPE(VELDRAW_DEFINE)
#undef VELDRAW_DEFINE

} // namespace veldraw

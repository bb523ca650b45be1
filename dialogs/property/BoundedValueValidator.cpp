#include "dialogs/property/BoundedValueValidator.ipp"

namespace veldraw {

#define VELDRAW_DEFINE(T) template class BoundedValueValidator<T>;
VELDRAW_FOR_EACH_BOUNDED_TYPE(VELDRAW_DEFINE)
#undef VELDRAW_DEFINE

} // namespace veldraw

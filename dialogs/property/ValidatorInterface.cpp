#include "dialogs/property/ValidatorInterface.ipp"

namespace veldraw {

#define VELDRAW_DEFINE(T) template class ValidatorInterface<T>;
VELDRAW_FOR_EACH_PROPERTY_TYPE(VELDRAW_DEFINE)
#undef VELDRAW_DEFINE

} // namespace veldraw

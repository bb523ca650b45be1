#include "dialogs/property/KernelPropertyAbstract.h"

namespace veldraw::sdk::styleproperties {

template <typename T>
KernelPropertyAbstract<T>::KernelPropertyAbstract() = default;

template <typename T>
KernelPropertyAbstract<T>::~KernelPropertyAbstract() = default;

template <typename T>
KernelPropertyAbstract<T>& KernelPropertyAbstract<T>::operator=(KernelPropertyAbstract const& other)
{
    PropertyAbstract<T>::operator=(other);
    return *this;
}

#define VELDRAW_DEFINE(T) template class KernelPropertyAbstract<T>;
VELDRAW_FOR_EACH_KERNEL_TYPE(VELDRAW_DEFINE)
#undef VELDRAW_DEFINE

} // namespace veldraw::sdk::styleproperties

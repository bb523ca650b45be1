#include "dialogs/property/KernelPropertyDeferred.h"

namespace veldraw::sdk::styleproperties {

template <typename T>
KernelPropertyDeferred<T>::KernelPropertyDeferred(toolbox::CheckedStyleValue const& styleValue)
    : m_value()
    , m_kernelProperty(styleValue)
{
    m_value = m_kernelProperty.value();
}

template <typename T>
KernelPropertyDeferred<T>::~KernelPropertyDeferred() = default;

template <typename T>
KernelPropertyDeferred<T>& KernelPropertyDeferred<T>::operator=(KernelPropertyDeferred const& other)
{
    PropertyAbstract<T>::operator=(other);
    return *this;
}

template <typename T>
void KernelPropertyDeferred<T>::setOffsets(long long offset1, long long offset2)
{
    m_kernelProperty.setOffsets(offset1, offset2);
    T const found = m_kernelProperty.value();
    if (found == m_value)
        return;
    m_value = found;
    this->signalValueChanged(found);
}

template <typename T>
void KernelPropertyDeferred<T>::submit()
{
    m_kernelProperty.setValue(m_value);
}

template <typename T>
void KernelPropertyDeferred<T>::storeValue(T const& newValue)
{
    m_value = newValue;
}

template <typename T>
T KernelPropertyDeferred<T>::retrieveValue() const
{
    return m_value;
}

#define VELDRAW_DEFINE(T) template class KernelPropertyDeferred<T>;
VELDRAW_FOR_EACH_KERNEL_TYPE(VELDRAW_DEFINE)
#undef VELDRAW_DEFINE

} // namespace veldraw::sdk::styleproperties

#pragma once

#include "dialogs/property/KernelProperty.h"

namespace veldraw::sdk::styleproperties {

/// A local copy of a value of the kernel's style tree, written when it is submitted: for modal dialogs that have an OK.
/// It starts with the kernel's value and does not follow later changes made elsewhere.
template <typename T>
class KernelPropertyDeferred : public KernelPropertyAbstract<T>
{
public:
    explicit KernelPropertyDeferred(toolbox::CheckedStyleValue const& styleValue);
    ~KernelPropertyDeferred() override;

    using PropertyAbstract<T>::operator=;
    /// Takes the value only, see `PropertyAbstract`.
    KernelPropertyDeferred& operator=(KernelPropertyDeferred const& other);

    /// Moves to another member of the collection and takes its value; what was not submitted is lost.
    void setOffsets(long long offset1, long long offset2) override;

    /// Writes the local value to the kernel. Throws `InvalidPropertyValueException` when the kernel refuses it.
    virtual void submit();

protected:
    void storeValue(T const& newValue) override;

private:
    T retrieveValue() const override;

    T m_value;
    KernelProperty<T> m_kernelProperty;
};

#define VELDRAW_DECLARE(T) extern template class KernelPropertyDeferred<T>;
VELDRAW_FOR_EACH_KERNEL_TYPE(VELDRAW_DECLARE)
#undef VELDRAW_DECLARE

} // namespace veldraw::sdk::styleproperties

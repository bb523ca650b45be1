#pragma once

#include "dialogs/property/PropertyAbstract.h"

namespace veldraw::sdk::styleproperties {

/// A property whose value belongs to the kernel's style tree. Offsets pick a member of a collection on the way to the
/// value, for instance a line map; -1 means unset.
template <typename T>
class KernelPropertyAbstract : public virtual PropertyAbstract<T>
{
public:
    KernelPropertyAbstract();
    ~KernelPropertyAbstract() override;

    using PropertyAbstract<T>::operator=;
    /// Takes the value only, see `PropertyAbstract`.
    KernelPropertyAbstract& operator=(KernelPropertyAbstract const& other);

    virtual void setOffsets(long long offset1, long long offset2) = 0;
};

/// Calls M(T) for each type that the kernel keeps.
#define VELDRAW_FOR_EACH_KERNEL_TYPE(M)                                                                                \
    M(double)                                                                                                          \
    M(long long)                                                                                                       \
    M(PtSelection_e)

#define VELDRAW_DECLARE(T) extern template class VDSDKDIALOGS_DATA_QT_API KernelPropertyAbstract<T>;
VELDRAW_FOR_EACH_KERNEL_TYPE(VELDRAW_DECLARE)
#undef VELDRAW_DECLARE

} // namespace veldraw::sdk::styleproperties

#pragma once

#include "dialogs/property/DialogsApi.h"
#include "dialogs/property/PropertyAbstract.h"
#include "dialogs/property/UIPropertyInterface.h"

namespace veldraw::sdk::ui::propertymanager {

/// A value together with the visibility and sensitivity of its control; adds nothing but this pairing.
template <typename T>
class UIStylePropertyAbstract : public PropertyAbstract<T>, public virtual UIPropertyInterface
{
public:
    UIStylePropertyAbstract();
    explicit UIStylePropertyAbstract(boost::shared_ptr<ValidatorInterface<T> const> validator);
    ~UIStylePropertyAbstract() override;

    using PropertyAbstract<T>::operator=;
    /// Takes the value only, see `PropertyAbstract`.
    UIStylePropertyAbstract& operator=(UIStylePropertyAbstract const& other);
};

#define VELDRAW_DECLARE(T) extern template class VDSDKDIALOGS_DATA_QT_API UIStylePropertyAbstract<T>;
VELDRAW_FOR_EACH_SHARED_TYPE(VELDRAW_DECLARE)
#undef VELDRAW_DECLARE
#define VELDRAW_DECLARE(T) extern template class UIStylePropertyAbstract<T>;
VELDRAW_FOR_EACH_PROPERTY_TYPE(VELDRAW_DECLARE)
#undef VELDRAW_DECLARE

} // namespace veldraw::sdk::ui::propertymanager

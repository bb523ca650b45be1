#pragma once

#include "dialogs/property/DialogsApi.h"
#include "dialogs/property/ValidatorInterface.h"

namespace veldraw {

/// Finds every value valid: what a property has that was given no other validator.
template <typename T>
class AllowAnyValueValidator : public virtual ValidatorInterface<T>
{
public:
    ValidationResult validate(T const& value) const override;
};

#define VELDRAW_DECLARE(T) extern template class VDSDKDIALOGS_DATA_QT_API AllowAnyValueValidator<T>;
VELDRAW_FOR_EACH_SHARED_TYPE(VELDRAW_DECLARE)
#undef VELDRAW_DECLARE
#define VELDRAW_DECLARE(T) extern template class AllowAnyValueValidator<T>;
VELDRAW_FOR_EACH_PROPERTY_TYPE(VELDRAW_DECLARE)
#undef VELDRAW_DECLARE

} // namespace veldraw

#pragma once

#include "dialogs/property/DialogsApi.h"
#include "dialogs/property/PropertyTypes.h"
#include "dialogs/property/ValidationResult.h"

namespace veldraw {

/// Judges values of one type. Implementers inherit it virtually, so that a class can be several validators in one.
template <typename T>
class ValidatorInterface
{
public:
    ValidatorInterface();
    ValidatorInterface(ValidatorInterface const& other);
    /// Does nothing: the interface has no state.
    ValidatorInterface& operator=(ValidatorInterface const& other);

    /// Never throws on a bad value; the result tells what is wrong with it.
    virtual ValidationResult validate(T const& value) const = 0;
    virtual ~ValidatorInterface();
};

#define VELDRAW_DECLARE(T) extern template class VDSDKDIALOGS_DATA_QT_API ValidatorInterface<T>;
VELDRAW_FOR_EACH_SHARED_TYPE(VELDRAW_DECLARE)
#undef VELDRAW_DECLARE
#define VELDRAW_DECLARE(T) extern template class ValidatorInterface<T>;
VELDRAW_FOR_EACH_PROPERTY_TYPE(VELDRAW_DECLARE)
#undef VELDRAW_DECLARE

} // namespace veldraw

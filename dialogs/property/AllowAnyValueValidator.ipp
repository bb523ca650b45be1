#pragma once

#include "dialogs/property/AllowAnyValueValidator.h"

namespace veldraw {

template <typename T>
ValidationResult AllowAnyValueValidator<T>::validate(T const&) const
{
    return ValidationResult();
}

} // namespace veldraw

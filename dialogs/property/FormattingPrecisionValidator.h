#pragma once

#include "dialogs/property/BoundedValueValidator.h"

namespace veldraw {

/// Accepts numbers of digits that a formatted number can have behind its point: 0 to 16.
class FormattingPrecisionValidator : public BoundedValueValidator<long long>
{
public:
    FormattingPrecisionValidator();
};

} // namespace veldraw

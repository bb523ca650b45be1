#pragma once

#include "dialogs/property/BoundedValueValidator.h"
#include "dialogs/property/DialogsApi.h"

namespace veldraw {

/// Accepts numbers of digits that a formatted number can have behind its point: 0 to 16.
class VDSDKDIALOGS_DATA_QT_API FormattingPrecisionValidator : public BoundedValueValidator<long long>
{
public:
    FormattingPrecisionValidator();
};

} // namespace veldraw

#include "dialogs/property/FormattingPrecisionValidator.h"

namespace veldraw {

// One digit stands before the point of an exponent; 17 in all tell any two doubles apart.
FormattingPrecisionValidator::FormattingPrecisionValidator()
    : BoundedValueValidator<long long>(0, 16, LowerInclusive, UpperInclusive)
{
}

} // namespace veldraw

#pragma once

#include "dialogs/property/ValidatorInterface.h"

namespace veldraw {

/// Accepts the values between two limits, each of which belongs to the range, does not, or is not looked at.
///
/// Not a number passes: each side fails only on a true comparison.
template <typename T>
class BoundedValueValidator : public virtual ValidatorInterface<T>
{
public:
    enum LowerBound
    {
        LowerInclusive = 0,
        LowerExclusive = 1,
        LowerUnchecked = 2
    };
    enum UpperBound
    {
        UpperInclusive = 0,
        UpperExclusive = 1,
        UpperUnchecked = 2
    };

    BoundedValueValidator(T min, T max, LowerBound lower, UpperBound upper);

    /// Replaces both limits unchecked and keeps the kinds. The next `validate` uses them; nobody is told.
    void resetMinMaxValue(T min, T max);
    T minValue() const;
    T maxValue() const;

    /// The text of a refusal names both limits, whichever side failed and even if one is not looked at.
    ValidationResult validate(T const& value) const override;

private:
    bool passesLowerBound(T const& value) const;
    bool passesUpperBound(T const& value) const;
    std::string refusal() const;

    T m_min;
    T m_max;
    LowerBound m_lower;
    UpperBound m_upper;
};

#define VELDRAW_DECLARE(T) extern template class VDSDKDIALOGS_DATA_QT_API BoundedValueValidator<T>;
VELDRAW_FOR_EACH_BOUNDED_TYPE(VELDRAW_DECLARE)
#undef VELDRAW_DECLARE

} // namespace veldraw

#pragma once

/// @file
/// Conversions between values and the range of a spin box.

#include "dialogs/property/BoundedValueValidator.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <type_traits>

namespace veldraw::sdk::ui::dialogs::propertybindings {

/// The value in the number type of a box, clamped to what that type holds; the box clamps it to its range.
template <typename Number, typename T>
Number shownIn(T value)
{
    using Limits = std::numeric_limits<Number>;
    if constexpr (std::is_integral_v<T>)
        return static_cast<Number>(std::clamp(value, static_cast<T>(Limits::min()), static_cast<T>(Limits::max())));
    else
        return value;
}

/// The value between the limits that is nearest to @p target; a whole number for integral types.
/// @param target any number; not NaN
template <typename T, typename Number>
T withinRange(double target, Number lowest, Number highest)
{
    if (target <= static_cast<double>(lowest))
        return lowest;
    if (target >= static_cast<double>(highest))
        return highest;
    if constexpr (std::is_integral_v<T>)
        return static_cast<T>(std::round(target));
    else
        return target;
}

/// The lowest whole number that the limits allow, cut to `int`; @p present if they have no lower limit.
template <typename T>
int lowestInRange(BoundedValueValidator<T> const& limits, int present)
{
    T const lowest = limits.minValue();
    if (!limits.validate(lowest).isValid())
        return shownIn<int>(lowest < std::numeric_limits<T>::max() ? lowest + 1 : lowest);
    bool const isChecked = lowest == std::numeric_limits<T>::min() || !limits.validate(lowest - 1).isValid();
    return isChecked ? shownIn<int>(lowest) : present;
}

/// The highest whole number that the limits allow, cut to `int`; @p present if they have no upper limit.
template <typename T>
int highestInRange(BoundedValueValidator<T> const& limits, int present)
{
    T const highest = limits.maxValue();
    if (!limits.validate(highest).isValid())
        return shownIn<int>(highest > std::numeric_limits<T>::min() ? highest - 1 : highest);
    bool const isChecked = highest == std::numeric_limits<T>::max() || !limits.validate(highest + 1).isValid();
    return isChecked ? shownIn<int>(highest) : present;
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings

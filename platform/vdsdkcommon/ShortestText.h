#pragma once

#include "platform/vdsdkbase/VelUtilTypes.h"

#include <array>
#include <charconv>
#include <cmath>
#include <string>

namespace veldraw::sdk {

/// Appends a number as the shortest text that reads back as the same number of that type: 0.1, 1e-30, 16777217, nan.
/// With an exponent only where a plain number would have more digits than the type tells apart, or zeros in front of it.
/// Decimal point whatever the locale.
/// @tparam Number float or double
template <typename Number>
void appendShortest(std::string& text, Number value)
{
    constexpr Number smallestPlain = Number(1e-4);
    constexpr Number firstNotPlain = sizeof(Number) == sizeof(float) ? Number(1e9) : Number(1e17);
    Number const size = std::abs(value);
    bool const isPlain = size == Number(0) || (size >= smallestPlain && size < firstNotPlain);
    std::array<char, 40> digits{};
    std::to_chars_result const end = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                                   isPlain ? std::chars_format::fixed : std::chars_format::scientific);
    text.append(digits.data(), end.ptr);
}

/// The same for a value of a field. @param type how the field stores it
inline void appendShortest(std::string& text, double value, FieldDataType_e type)
{
    if (type == FieldDataType_Float)
        appendShortest(text, static_cast<float>(value));
    else
        appendShortest(text, value);
}

} // namespace veldraw::sdk

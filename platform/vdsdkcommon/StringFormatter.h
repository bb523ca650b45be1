#pragma once

#include "platform/PlatformApi.h"
#include "platform/vdsdkbase/VelUtilTypes.h"

#include <cstddef>
#include <string>

namespace veldraw::sdk {

/// Numbers as text, always with a decimal point whatever the locale: `StringFormatter().precision(3).format(value)`.
/// Integer: rounded to a whole number. Float: fixed digits behind the point. Exponent: the same with an exponent.
/// Best Float: at most seven significant digits, as short as it goes; the precision does not matter.
/// What is not a number reads "nan", "inf" or "-inf" in all four.
class VELDRAW_PLATFORM_API StringFormatter
{
public:
    /// Best Float with a precision of 3.
    StringFormatter();

    /// @param digits behind the decimal point
    StringFormatter& precision(std::size_t digits);
    StringFormatter& formatting(NumberFormat_e format);

    std::string format(double value) const;

private:
    std::size_t m_precision;
    NumberFormat_e m_format;
};

} // namespace veldraw::sdk

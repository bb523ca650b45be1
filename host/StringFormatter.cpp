#include "platform/vdsdkcommon/StringFormatter.h"

#include <cmath>
#include <iomanip>
#include <locale>
#include <sstream>

namespace veldraw::sdk {

namespace {

constexpr int bestFloatDigits = 7;

} // namespace

StringFormatter::StringFormatter()
    : m_precision(3)
    , m_format(NumberFormat_BestFloat)
{
}

StringFormatter& StringFormatter::precision(std::size_t digits)
{
    m_precision = digits;
    return *this;
}

StringFormatter& StringFormatter::formatting(NumberFormat_e format)
{
    m_format = format;
    return *this;
}

std::string StringFormatter::format(double value) const
{
    if (std::isnan(value))
        return "nan";
    if (std::isinf(value))
        return value < 0 ? "-inf" : "inf";
    std::ostringstream text;
    text.imbue(std::locale::classic()); // a decimal point, whatever the user's locale
    switch (m_format) {
    case NumberFormat_Integer:
        text << std::fixed << std::setprecision(0);
        break;
    case NumberFormat_Float:
        text << std::fixed << std::setprecision(static_cast<int>(m_precision));
        break;
    case NumberFormat_Exponent:
        text << std::scientific << std::uppercase << std::setprecision(static_cast<int>(m_precision));
        break;
    case NumberFormat_BestFloat:
        text << std::setprecision(bestFloatDigits);
        break;
    }
    text << value;
    return text.str();
}

} // namespace veldraw::sdk

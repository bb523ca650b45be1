#include "kernel/style/StyleNumber.h"

#include <cmath>
#include <limits>

namespace veldraw::kernel {

namespace {

constexpr double twoToThe63 = 9223372036854775808.0;

long long cutOff(double real)
{
    if (std::isnan(real))
        return 0;
    if (real >= twoToThe63)
        return std::numeric_limits<long long>::max();
    if (real < -twoToThe63)
        return std::numeric_limits<long long>::min();
    return static_cast<long long>(real);
}

} // namespace

StyleNumber StyleNumber::ofWhole(long long whole)
{
    return {whole, static_cast<double>(whole)};
}

StyleNumber StyleNumber::ofReal(double real)
{
    return {cutOff(real), real};
}

bool StyleNumber::isWhole() const
{
    return static_cast<double>(whole) == real;
}

} // namespace veldraw::kernel

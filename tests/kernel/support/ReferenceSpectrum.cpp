#include "tests/kernel/support/ReferenceSpectrum.h"

#include <cmath>

namespace veldraw::tests {

namespace reference {

std::vector<LongBin> roots(std::size_t length)
{
    long double const circle = 8.0L * std::atan(1.0L);
    std::vector<LongBin> result;
    for (std::size_t number = 0; number < length; ++number) {
        long double const angle = circle * static_cast<long double>(number) / static_cast<long double>(length);
        result.emplace_back(std::cos(angle), -std::sin(angle));
    }
    return result;
}

} // namespace reference

} // namespace veldraw::tests

#include "kernel/compute/SineAndCosine.h"

#include <cmath>

namespace veldraw::kernel {

SineAndCosine sineAndCosine(long double degrees)
{
    constexpr long double pi = 3.141592653589793238462643383279502884L;
    int quarters = 0;
    long double const rest = std::remquo(degrees, 90.0L, &quarters); // exact, at most 45 degrees
    long double const sine = std::sin(rest * (pi / 180.0L));
    long double const cosine = std::cos(rest * (pi / 180.0L));
    switch (quarters & 3) {
    case 1:
        return {cosine, -sine};
    case 2:
        return {-sine, -cosine};
    case 3:
        return {-cosine, sine};
    default:
        return {sine, cosine};
    }
}

} // namespace veldraw::kernel

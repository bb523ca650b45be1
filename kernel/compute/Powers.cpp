#include "kernel/compute/Powers.h"

#include "kernel/compute/WideLanes.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>

namespace veldraw::kernel {

namespace {

constexpr double ln2 = 0.693147180559945309417232121458;
constexpr double rounder = 6755399441055744.0; // 1.5 * 2^52: a sum with it has no fraction

VELDRAW_INLINE std::uint64_t bitsOf(double number)
{
    std::uint64_t bits = 0;
    std::memcpy(&bits, &number, sizeof bits);
    return bits;
}

VELDRAW_INLINE double numberOf(std::uint64_t bits)
{
    double number = 0.0;
    std::memcpy(&number, &bits, sizeof number);
    return number;
}

/// Logarithm to base 2 of a normal number above 0: that of the mantissa m, brought to [0.7, 1.5), by the series of
/// ln m = 2 artanh((m - 1) / (m + 1)).
VELDRAW_INLINE double log2Of(double number)
{
    std::uint64_t const bits = bitsOf(number);
    double exponent = numberOf((bits >> 52U) | 0x4330000000000000U) - 4503599627371519.0; // 2^52 + 1023
    double mantissa = numberOf((bits & 0xfffffffffffffU) | 0x3ff0000000000000U);
    bool const isHigh = mantissa > 1.4142135623730951;
    mantissa = isHigh ? 0.5 * mantissa : mantissa;
    exponent = isHigh ? exponent + 1.0 : exponent;
    double const ratio = (mantissa - 1.0) / (mantissa + 1.0);
    double const square = ratio * ratio; // at most 0.0295
    double series = 1.0 / 15.0;
    series = series * square + 1.0 / 13.0;
    series = series * square + 1.0 / 11.0;
    series = series * square + 1.0 / 9.0;
    series = series * square + 1.0 / 7.0;
    series = series * square + 1.0 / 5.0;
    series = series * square + 1.0 / 3.0;
    series = series * square + 1.0;
    return exponent + ratio * series * (2.0 / ln2);
}

/// 2 to the power of a number from -1020 to 0: a power of two for the whole part, the series of the exponential function for
/// what is left, which is at most ln 2 / 2.
VELDRAW_INLINE double exp2Of(double power)
{
    double const shifted = power + rounder;
    double const whole = shifted - rounder;
    double const rest = (power - whole) * ln2;
    double series = 1.0 / 39916800.0;
    series = series * rest + 1.0 / 3628800.0;
    series = series * rest + 1.0 / 362880.0;
    series = series * rest + 1.0 / 40320.0;
    series = series * rest + 1.0 / 5040.0;
    series = series * rest + 1.0 / 720.0;
    series = series * rest + 1.0 / 120.0;
    series = series * rest + 1.0 / 24.0;
    series = series * rest + 1.0 / 6.0;
    series = series * rest + 0.5;
    series = series * rest + 1.0;
    series = series * rest + 1.0;
    return series * numberOf((bitsOf(shifted) + 1023U) << 52U);
}

VELDRAW_WIDE_LANES("avx512f", "avx2")
void raiseAny(double* numbers, std::size_t count, double exponent)
{
    for (std::size_t at = 0; at < count; ++at) {
        double const number = numbers[at];
        double const power = exponent * log2Of(number);
        double const result = exp2Of(power > -1020.0 ? power : -1020.0);
        numbers[at] = number < 1e-300 || power <= -1020.0 ? 0.0 : result;
    }
}

constexpr std::size_t few = 64;

/// Powers of quarters, which most exponents are, by square roots: numbers^(whole + quarters / 4). At most 64 numbers.
template <int Quarters>
VELDRAW_INLINE void raiseByRoots(double* numbers, std::size_t count, int whole)
{
    double factors[few];
    for (std::size_t at = 0; at < count; ++at) {
        double const number = numbers[at];
        double const root = Quarters != 0 ? std::sqrt(number) : 1.0;
        double const half = (Quarters & 2) != 0 ? root : 1.0;
        double const quarter = (Quarters & 1) != 0 ? std::sqrt(root) : 1.0;
        factors[at] = number;
        numbers[at] = half * quarter;
    }
    for (int factor = 0; factor < whole; ++factor) {
        for (std::size_t at = 0; at < count; ++at) {
            numbers[at] *= factors[at];
        }
    }
}

VELDRAW_WIDE_LANES("avx512f", "avx2")
void raiseToQuarters(double* numbers, std::size_t count, int whole, int quarters)
{
    switch (quarters) {
    case 1:
        return raiseByRoots<1>(numbers, count, whole);
    case 2:
        return raiseByRoots<2>(numbers, count, whole);
    case 3:
        return raiseByRoots<3>(numbers, count, whole);
    default:
        return raiseByRoots<0>(numbers, count, whole);
    }
}

} // namespace

void raiseFractions(double* numbers, std::size_t count, double exponent)
{
    double const quarters = exponent * 4.0;
    bool const isOfQuarters = quarters <= 32.0 && !(std::floor(quarters) < quarters);
    if (isOfQuarters) {
        for (std::size_t first = 0; first < count; first += few) {
            raiseToQuarters(numbers + first, std::min(few, count - first), static_cast<int>(quarters) / 4,
                            static_cast<int>(quarters) % 4);
        }
    } else {
        raiseAny(numbers, count, exponent);
    }
}

} // namespace veldraw::kernel

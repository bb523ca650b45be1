#pragma once

#include <complex>
#include <vector>

namespace veldraw::tests {

/// Discrete Fourier transforms by their definition, one sum a bin in long double.
namespace reference {

using LongBin = std::complex<long double>;

/// The roots of unity exp(-2 pi i n / length), each rounded once.
std::vector<LongBin> roots(std::size_t length);

/// Sum of values[n] exp(-2 pi i n bin / length). @param roots of the length of the values
template <typename Number>
LongBin sumOfBin(std::vector<Number> const& values, std::vector<LongBin> const& roots, std::size_t bin)
{
    LongBin sum = 0;
    std::size_t turn = 0;
    for (Number const value : values) {
        sum += static_cast<long double>(value) * roots[turn];
        turn = (turn + bin) % values.size();
    }
    return sum;
}

} // namespace reference

} // namespace veldraw::tests

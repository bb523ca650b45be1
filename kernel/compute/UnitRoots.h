#pragma once

#include <complex>
#include <cstdint>
#include <vector>

namespace veldraw::kernel {

/// exp(-2 pi i number / count), the angle rounded once.
std::complex<double> unitRoot(std::uint64_t number, std::uint64_t count);

/// The product of two finite numbers, without the library's care for infinite ones, which takes most of the time.
inline std::complex<double> product(std::complex<double> const& a, std::complex<double> const& b)
{
    return {a.real() * b.real() - a.imag() * b.imag(), a.real() * b.imag() + a.imag() * b.real()};
}

/// All roots exp(-2 pi i n / count) by two tables of about the root of @p count numbers: each is a product of two of them.
class UnitRoots
{
public:
    /// @throws std::bad_alloc
    explicit UnitRoots(std::uint64_t count);

    /// Bytes of the tables.
    static double bytesOf(std::int64_t count);

    /// @param number below count
    std::complex<double> at(std::uint64_t number) const
    {
        return product(m_coarse[number >> m_shift], m_fine[number & (m_fine.size() - 1)]);
    }

private:
    unsigned m_shift = 0; // of the number of fine ones, a power of two
    std::vector<std::complex<double>> m_fine;
    std::vector<std::complex<double>> m_coarse;
};

} // namespace veldraw::kernel

#include "kernel/compute/UnitRoots.h"

#include <cmath>

namespace veldraw::kernel {

std::complex<double> unitRoot(std::uint64_t number, std::uint64_t count)
{
    // An eighth of a turn at a time, so that the angle is small and equal parts of roots are equal.
    std::uint64_t const eighths = 8 * (number % count) / count;
    std::uint64_t const quarter = (eighths + 1) / 2;
    auto const rest = static_cast<double>(static_cast<std::int64_t>(4 * (number % count) - quarter * count));
    double const angle = M_PI_2 * rest / static_cast<double>(count);
    double const cosine = std::cos(angle);
    double const sine = std::sin(angle);
    switch (quarter % 4) {
    case 1:
        return {-sine, -cosine};
    case 2:
        return {-cosine, sine};
    case 3:
        return {sine, cosine};
    default:
        return {cosine, -sine};
    }
}

UnitRoots::UnitRoots(std::uint64_t count)
{
    while (std::uint64_t{1} << 2 * m_shift < count) {
        ++m_shift;
    }
    std::uint64_t const step = std::uint64_t{1} << m_shift;
    m_fine.reserve(step);
    m_coarse.reserve(count / step + 1);
    for (std::uint64_t number = 0; number < step; ++number) {
        m_fine.push_back(unitRoot(number, count));
    }
    for (std::uint64_t number = 0; number < count; number += step) {
        m_coarse.push_back(unitRoot(number, count));
    }
}

double UnitRoots::bytesOf(std::int64_t count)
{
    return 3.0 * static_cast<double>(sizeof(std::complex<double>)) * std::ceil(std::sqrt(static_cast<double>(count)));
}

} // namespace veldraw::kernel

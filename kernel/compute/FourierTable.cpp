#include "kernel/compute/FourierTable.h"

#include "kernel/compute/WideLanes.h"

#include <cmath>

namespace veldraw::kernel {

namespace {

/// Multiplies complex numbers by others, and those by one more.
VELDRAW_WIDE_LANES("avx512f", "avx2")
void multiply(double* numbers, double const* factors, double real, double imaginary, std::int64_t count)
{
    for (std::int64_t at = 0; at < count; ++at) {
        double const cosine = factors[2 * at] * real - factors[2 * at + 1] * imaginary;
        double const sine = factors[2 * at] * imaginary + factors[2 * at + 1] * real;
        double const x = numbers[2 * at];
        double const y = numbers[2 * at + 1];
        numbers[2 * at] = x * cosine - y * sine;
        numbers[2 * at + 1] = x * sine + y * cosine;
    }
}

} // namespace

/// The largest divisor up to the square root.
std::int64_t FourierTable::columnsOf(std::int64_t length)
{
    auto divisor = static_cast<std::int64_t>(std::sqrt(static_cast<double>(length)));
    while (length % divisor != 0) {
        --divisor;
    }
    return divisor;
}

FourierTable::FourierTable(std::int64_t length)
    : m_columns(columnsOf(length))
    , m_rows(length / m_columns)
    , m_planOfColumn(FourierPlan::ofComplex(m_rows))
    , m_planOfRow(FourierPlan::ofComplex(m_columns))
    , m_roots(static_cast<std::uint64_t>(length))
    , m_steps(static_cast<std::size_t>(m_rows * linesAtOnce))
{
    for (std::int64_t row = 0; row < m_rows; ++row) {
        for (std::int64_t column = 0; column < std::min(linesAtOnce, m_columns); ++column) {
            m_steps[static_cast<std::size_t>(row * linesAtOnce + column)] =
                m_roots.at(static_cast<std::uint64_t>(row * column));
        }
    }
}

void FourierTable::turn(std::int64_t row, std::int64_t first, std::int64_t count, Bin* values) const
{
    Bin const start = m_roots.at(static_cast<std::uint64_t>(row * first));
    multiply(reinterpret_cast<double*>(values), reinterpret_cast<double const*>(m_steps.begin() + row * linesAtOnce),
             start.real(), start.imag(), count);
}

double FourierTable::bytesOf(std::int64_t length)
{
    std::int64_t const columns = columnsOf(length);
    std::int64_t const rows = length / columns;
    return FourierPlan::bytesOfComplex(columns) + FourierPlan::bytesOfComplex(rows) + UnitRoots::bytesOf(length) +
           static_cast<double>(sizeof(Bin)) * static_cast<double>(rows * linesAtOnce);
}

double FourierTable::bytesOfThread(std::int64_t length)
{
    std::int64_t const rows = length / columnsOf(length);
    return static_cast<double>(sizeof(Bin)) * static_cast<double>(linesAtOnce * 2 * strideFor(rows));
}

} // namespace veldraw::kernel

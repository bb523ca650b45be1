#include "kernel/compute/SpectrumWindow.h"

#include "kernel/compute/UnitRoots.h"
#include "kernel/compute/ValueBlock.h"

#include <algorithm>

namespace veldraw::kernel {

namespace {

/// Cosines cos(2 pi n / length): those of a block are real parts of the first root times those of the very first block.
class Cosines
{
public:
    explicit Cosines(std::int64_t length)
        : m_length(static_cast<std::uint64_t>(length))
    {
        for (std::int64_t number = 0; number < std::min(length, blockSize); ++number) {
            m_block.push_back(unitRoot(static_cast<std::uint64_t>(number), m_length));
        }
    }

    /// @param count up to a block
    void write(std::int64_t first, std::int64_t count, double* values) const
    {
        std::complex<double> const start = unitRoot(static_cast<std::uint64_t>(first), m_length);
        for (std::int64_t at = 0; at < count; ++at) {
            values[at] = product(start, m_block[static_cast<std::size_t>(at)]).real();
        }
    }

private:
    std::uint64_t m_length;
    std::vector<std::complex<double>> m_block;
};

void writeLine(std::int64_t first, std::int64_t count, std::int64_t length, double* values)
{
    for (std::int64_t at = 0; at < count; ++at) {
        values[at] = 2.0 * static_cast<double>(first + at) / static_cast<double>(length);
    }
}

} // namespace

SpectrumWindow::SpectrumWindow(WindowFunction_e function, std::int64_t length, Progress& progress)
    : m_function(function)
    , m_length(length)
{
    if (function == WindowFunction_Rectangular) {
        return;
    }
    m_half = ZeroedArray<double>(static_cast<std::size_t>(length / 2 + 1));
    double const constant = function == WindowFunction_Hann ? 0.5 : 0.54;
    Cosines const cosines(length);
    Progress part(progress, 0);
    forEachBlock(length / 2 + 1, part, [&](std::int64_t first, std::int64_t count) {
        double* const values = m_half.begin() + first;
        if (function == WindowFunction_Triangular) {
            return writeLine(first, count, length, values);
        }
        cosines.write(first, count, values);
        std::for_each(values, values + count, [=](double& value) { value = constant - (1.0 - constant) * value; });
    });
}

double SpectrumWindow::bytesOf(WindowFunction_e function, std::int64_t length)
{
    return function == WindowFunction_Rectangular ? 0.0 : 8.0 * static_cast<double>(length / 2 + 1);
}

double SpectrumWindow::mean() const
{
    auto const length = static_cast<double>(m_length);
    switch (m_function) {
    case WindowFunction_Triangular:
        return m_length % 2 == 0 ? 0.5 : 0.5 - 0.5 / (length * length);
    case WindowFunction_Hann:
        return 0.5;
    case WindowFunction_Hamming:
        return 0.54;
    case WindowFunction_Rectangular:
        break;
    }
    return 1.0;
}

void SpectrumWindow::apply(std::int64_t first, std::int64_t count, double* values) const
{
    if (m_half.isEmpty()) {
        return;
    }
    double const* const factors = m_half.begin();
    std::int64_t const middle = std::clamp<std::int64_t>(m_length / 2 + 1 - first, 0, count);
    for (std::int64_t at = 0; at < middle; ++at) {
        values[at] *= factors[first + at];
    }
    for (std::int64_t at = middle; at < count; ++at) {
        values[at] *= factors[m_length - first - at];
    }
}

} // namespace veldraw::kernel

#include "kernel/compute/SpectrumWindow.h"

#include "kernel/base/CheckedLoop.h"
#include "kernel/compute/UnitRoots.h"

#include <algorithm>

namespace veldraw::kernel {

namespace {

double factor(WindowFunction_e function, std::int64_t number, std::int64_t length)
{
    auto const cosine = [&] {
        return unitRoot(static_cast<std::uint64_t>(number), static_cast<std::uint64_t>(length)).real();
    };
    switch (function) {
    case WindowFunction_Triangular:
        return 2.0 * static_cast<double>(number) / static_cast<double>(length);
    case WindowFunction_Hann:
        return 0.5 - 0.5 * cosine();
    case WindowFunction_Hamming:
        return 0.54 - 0.46 * cosine();
    case WindowFunction_Rectangular:
        break;
    }
    return 1.0;
}

} // namespace

SpectrumWindow::SpectrumWindow(WindowFunction_e function, std::int64_t length, Progress const& progress)
    : m_function(function)
    , m_length(length)
{
    if (function != WindowFunction_Rectangular) {
        m_half = ZeroedArray<double>(static_cast<std::size_t>(length / 2 + 1));
        forEachChecked(length / 2 + 1, progress, [&](std::int64_t number) {
            m_half[static_cast<std::size_t>(number)] = factor(function, number, length);
        });
    }
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

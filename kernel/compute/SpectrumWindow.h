#pragma once

#include "kernel/base/Progress.h"
#include "kernel/base/ZeroedArray.h"
#include "platform/vdsdkbase/VelUtilTypes.h"

#include <cstdint>

namespace veldraw::kernel {

/// Factors that let a signal begin and end gently before it is transformed:
///
///     triangular  1 - |2 n / N - 1|
///     Hann        0.5 - 0.5 cos(2 pi n / N)
///     Hamming     0.54 - 0.46 cos(2 pi n / N)
///
/// for n from 0 to N - 1. They are the periodic ones, as made for the discrete transform (Harris 1978, "On the use of windows for
/// harmonic analysis with the discrete Fourier transform"), and not the symmetric ones, which end at n = N - 1: these would
/// add a little to a tone whose frequency is a bin's.
class SpectrumWindow
{
public:
    /// @param length N of the signals. @throws Interrupted, std::bad_alloc
    SpectrumWindow(WindowFunction_e function, std::int64_t length, Progress& progress);

    /// Bytes of the factors that are kept.
    static double bytesOf(WindowFunction_e function, std::int64_t length);

    /// Mean of the factors: by it the amplitude of a tone becomes less.
    double mean() const;

    /// Multiplies @p count values of a signal from @p first on.
    void apply(std::int64_t first, std::int64_t count, double* values) const;

private:
    WindowFunction_e m_function;
    std::int64_t m_length;
    ZeroedArray<double>
        m_half; // the factors 0 to N / 2, of which the others are a mirror image; none for a rectangular window
};

} // namespace veldraw::kernel

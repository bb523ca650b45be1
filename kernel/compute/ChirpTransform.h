#pragma once

#include "kernel/base/ZeroedArray.h"
#include "kernel/compute/RealTransform.h"

namespace veldraw::kernel {

/// The transform of a length with a large prime factor, as a convolution with a chirp, for which any length that is long enough
/// will do (Bluestein 1970, "A linear filtering approach to the computation of discrete Fourier transform").
///
/// As k n is (k^2 + n^2 - (k - n)^2) / 2, bin k is c[k] times the sum of x[n] c[n] / c[k - n] with c[n] = exp(-pi i n^2 / length).
class ChirpTransform : public RealTransform
{
public:
    /// @throws Interrupted, std::bad_alloc
    ChirpTransform(std::int64_t length, Progress& progress, std::int64_t longest);

    std::size_t roomSize() const override { return 2 * static_cast<std::size_t>(m_convolution.length()); }

    /// The length of the convolution.
    static std::int64_t paddedLength(std::int64_t length);

    /// Units by which the constructor and run() advance the progress.
    static std::int64_t effortOfTables(std::int64_t length);
    static std::int64_t effortOfRun(std::int64_t length);

private:
    void transform(double* signal, Bin* bins, Bin* room, Progress& progress) const override;
    void makeChirp(Progress& progress);
    void makeFilter(Progress& progress);

    LongTransform m_convolution;
    ZeroedArray<Bin> m_chirp;  // c[n]
    ZeroedArray<Bin> m_filter; // the transform of 1 / c[n], divided by its length
};

} // namespace veldraw::kernel

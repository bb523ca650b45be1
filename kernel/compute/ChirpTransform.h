#pragma once

#include "kernel/base/ZeroedArray.h"
#include "kernel/compute/FourierTable.h"
#include "kernel/compute/RealTransform.h"

namespace veldraw::kernel {

/// The transform of a length with a large prime factor, as a convolution with a chirp, for which any length that is long enough
/// will do (Bluestein 1970, "A linear filtering approach to the computation of discrete Fourier transform"). The convolution never
/// needs its bins in their order: each row of its table is transformed, filtered and transformed back while it is in the cache.
///
/// As k n is (k^2 + n^2 - (k - n)^2) / 2, bin k is c[k] times the sum of x[n] c[n] / c[k - n] with c[n] = exp(-pi i n^2 / length).
class ChirpTransform : public RealTransform
{
public:
    /// @throws Interrupted, std::bad_alloc
    ChirpTransform(std::int64_t length, Progress& progress);

    std::size_t roomSize() const override { return m_filter.size(); }

    /// The length of the convolution.
    static std::int64_t paddedLength(std::int64_t length);

    /// Bytes of the tables, of the room, and of what run() takes for each thread.
    static double bytesOfTables(std::int64_t length);
    static double bytesOfRoom(std::int64_t length);
    static double bytesOfThread(std::int64_t length);

    /// Units by which the constructor and run() advance the progress.
    static std::int64_t effortOfTables(std::int64_t length);
    static std::int64_t effortOfRun(std::int64_t length);

private:
    void transform(double* numbers, Bin* room, Progress& progress) const override;
    void makeChirp(Progress& progress);
    void makeFilter(Progress& progress);
    void filter(Bin* numbers, Progress& progress) const;

    /// Transforms the columns of @p numbers and multiplies them by the factors before the rows. @param load as for a FourierTable
    template <typename Load>
    void transformColumns(Bin* numbers, Progress& progress, Load const& load) const;

    FourierTable m_table;
    ZeroedArray<Bin> m_chirp;  // c[n]
    ZeroedArray<Bin> m_filter; // the transform of 1 / c[n], divided by its length, row by row as the table leaves it
};

} // namespace veldraw::kernel

#pragma once

#include "kernel/base/Progress.h"
#include "kernel/compute/LongTransform.h"

#include <complex>
#include <cstdint>
#include <memory>

namespace veldraw::kernel {

/// The discrete Fourier transform of real signals of one length, whatever its prime factors:
///
///     auto const transform = RealTransform::make(1000, progress);
///     Bin* const bins = transform->run(numbers, room, progress);
///
/// Bin k, from 0 to length / 2, is the sum of x[n] exp(-2 pi i k n / length); the others are the conjugates of these. Bin 0 and,
/// of an even length, the last one are real. Results do not depend on the number of threads. Several threads may use a transform at
/// the same time, and a long one is itself done on all cores unless it is called by one of several threads.
class RealTransform
{
public:
    using Bin = std::complex<double>;

    /// @param length at least 1
    /// @param longest length that is transformed as a whole
    /// @throws Interrupted, std::bad_alloc
    static std::unique_ptr<RealTransform const> make(std::int64_t length, Progress& progress,
                                                     std::int64_t longest = LongTransform::longestWhole);

    /// Bytes that make() takes for its tables, that run() needs as room, and that it takes itself for each thread that it runs on.
    static double bytesOfTables(std::int64_t length);
    static double bytesOfRoom(std::int64_t length);
    static double bytesOfThread(std::int64_t length);

    /// Units by which make() and run() advance the progress: one is about the time that it takes to read a value.
    static std::int64_t effortOfTables(std::int64_t length);
    static std::int64_t effortOfRun(std::int64_t length);

    virtual ~RealTransform() = default;
    RealTransform(RealTransform const&) = delete;
    RealTransform& operator=(RealTransform const&) = delete;

    /// How many numbers run() needs room for.
    virtual std::size_t roomSize() const = 0;

    /// Puts the bins in the place of a signal. Both arrays begin at multiples of 16 bytes.
    /// @param numbers the signal, with room for the bins: two numbers each; @param room of roomSize() complex numbers
    /// @return the bins
    /// @throws Interrupted, std::bad_alloc
    Bin* run(double* numbers, Bin* room, Progress& progress) const;

protected:
    explicit RealTransform(std::int64_t length)
        : m_length(length)
    {
    }

    std::int64_t length() const { return m_length; }

private:
    /// Writes the bins for run(). Those that are real may have some rounding in their imaginary parts.
    virtual void transform(double* numbers, Bin* room, Progress& progress) const = 0;

    std::int64_t m_length;
};

} // namespace veldraw::kernel

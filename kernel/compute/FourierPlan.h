#pragma once

#include <complex>
#include <cstdint>
#include <memory>

namespace veldraw::kernel {

/// How FFTW transforms signals of one length. The source of this class is the only one that includes FFTW.
///
///     auto const plan = FourierPlan::ofReal(1000); // from those that are kept, if it is among them
///     plan->run(numbers);
///
/// Plans are estimated, never measured, so that a length gives the same result each time. Several threads may use a plan at
/// the same time.
class FourierPlan
{
public:
    using Bin = std::complex<double>;

    /// A plan for @p length real numbers, which gives the bins 0 to length / 2 in their place. @throws std::bad_alloc
    static std::shared_ptr<FourierPlan const> ofReal(std::int64_t length);

    /// A plan for @p length complex numbers. @throws std::bad_alloc
    static std::shared_ptr<FourierPlan const> ofComplex(std::int64_t length);

    /// Bytes of the factors that FFTW keeps, at most.
    static double bytesOfReal(std::int64_t length);
    static double bytesOfComplex(std::int64_t length);

    virtual ~FourierPlan() = default;
    FourierPlan(FourierPlan const&) = delete;
    FourierPlan& operator=(FourierPlan const&) = delete;

    /// Puts bins in the place of a signal: bin k is the sum of x[n] exp(-2 pi i k n / length).
    /// @param numbers begin at a multiple of 16 bytes, with room for the bins
    virtual void run(double* numbers) const = 0;

    /// The same in another array, which does not overlap the signal; both begin at multiples of 16 bytes. @param signal is lost
    virtual void run(Bin* signal, Bin* bins) const = 0;

protected:
    FourierPlan() = default;
};

} // namespace veldraw::kernel

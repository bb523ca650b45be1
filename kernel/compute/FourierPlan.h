#pragma once

#include <complex>
#include <cstdint>
#include <memory>

namespace veldraw::kernel {

/// How FFTW transforms signals of one length. The source of this class is the only one that includes FFTW.
///
///     auto const plan = FourierPlan::ofReal(1000); // from those that are kept, if it is among them
///     plan->run(signal, bins);
///
/// Plans are estimated, never measured, so that a length gives the same result each time. Several threads may use a plan at
/// the same time.
class FourierPlan
{
public:
    using Bin = std::complex<double>;

    /// A plan for @p length real numbers, which gives the bins 0 to length / 2. @throws std::bad_alloc
    static std::shared_ptr<FourierPlan const> ofReal(std::int64_t length);

    /// A plan for @p length complex numbers. @throws std::bad_alloc
    static std::shared_ptr<FourierPlan const> ofComplex(std::int64_t length);

    /// Bytes of the factors that FFTW keeps, at most.
    static double bytesOfReal(std::int64_t length);
    static double bytesOfComplex(std::int64_t length);

    virtual ~FourierPlan() = default;
    FourierPlan(FourierPlan const&) = delete;
    FourierPlan& operator=(FourierPlan const&) = delete;

    /// Bin k is the sum of x[n] exp(-2 pi i k n / length). Both arrays begin at multiples of 16 bytes and do not overlap.
    /// @param signal is lost
    virtual void run(double* signal, Bin* bins) const = 0;
    virtual void run(Bin* signal, Bin* bins) const = 0;

protected:
    FourierPlan() = default;
};

} // namespace veldraw::kernel

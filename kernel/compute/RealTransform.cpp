#include "kernel/compute/RealTransform.h"

#include "kernel/base/CheckedLoop.h"
#include "kernel/compute/ChirpTransform.h"

namespace veldraw::kernel {

namespace {

using Bin = RealTransform::Bin;

/// Up to here FFTW takes a prime factor by itself about as quickly as a longer convolution takes.
constexpr std::int64_t largestPlainFactor = 50;

std::int64_t largestFactor(std::int64_t number)
{
    std::int64_t largest = 1;
    for (std::int64_t factor = 2; factor * factor <= number; ++factor) {
        while (number % factor == 0) {
            largest = factor;
            number /= factor;
        }
    }
    return number > 1 ? number : largest;
}

bool isCut(std::int64_t length, std::int64_t longest)
{
    return length > longest;
}

bool isConvolution(std::int64_t length, std::int64_t longest)
{
    return largestFactor(length) > largestPlainFactor || (isCut(length, longest) && length % 2 != 0);
}

/// A signal that FFTW takes as it is.
class WholeTransform : public RealTransform
{
public:
    explicit WholeTransform(std::int64_t length)
        : RealTransform(length)
        , m_plan(FourierPlan::ofReal(length))
    {
    }

    std::size_t roomSize() const override { return 0; }

private:
    void transform(double* signal, Bin* bins, Bin*, Progress const& progress) const override
    {
        progress.check();
        m_plan->run(signal, bins);
    }

    std::shared_ptr<FourierPlan const> m_plan;
};

/// A long signal of even length, as a complex one of half the length: real parts are values of even number, imaginary
/// parts those of odd number. Their transforms are the even and the odd part of that of the complex signal.
class PackedTransform : public RealTransform
{
public:
    PackedTransform(std::int64_t length, std::int64_t longest)
        : RealTransform(length)
        , m_half(length / 2, longest)
        , m_roots(static_cast<std::uint64_t>(length))
    {
    }

    std::size_t roomSize() const override { return static_cast<std::size_t>(m_half.length()); }

private:
    void transform(double* signal, Bin* bins, Bin* room, Progress const& progress) const override
    {
        std::int64_t const half = m_half.length();
        m_half.run(reinterpret_cast<Bin*>(signal), room, progress);
        forEachChecked(half + 1, progress, [&](std::int64_t k) {
            Bin const forward = room[k % half];
            Bin const backward = std::conj(room[(half - k) % half]);
            Bin const even = 0.5 * (forward + backward);
            Bin const odd = product({0.0, -0.5}, forward - backward);
            bins[k] = even + product(m_roots.at(static_cast<std::uint64_t>(k)), odd);
        });
    }

    LongTransform m_half;
    UnitRoots m_roots;
};

} // namespace

std::unique_ptr<RealTransform const> RealTransform::make(std::int64_t length, Progress const& progress,
                                                         std::int64_t longest)
{
    progress.check();
    if (isConvolution(length, longest)) {
        return std::make_unique<ChirpTransform>(length, progress, longest);
    }
    if (isCut(length, longest)) {
        return std::make_unique<PackedTransform>(length, longest);
    }
    return std::make_unique<WholeTransform>(length);
}

/// The sums of bins without a partner are real; what rounding has left there would turn the phase of a negative one to -180.
void RealTransform::run(double* signal, Bin* bins, Bin* room, Progress const& progress) const
{
    transform(signal, bins, room, progress);
    bins[0].imag(0.0);
    if (m_length % 2 == 0) {
        bins[m_length / 2].imag(0.0);
    }
}

double RealTransform::bytesOfTables(std::int64_t length)
{
    constexpr double bytesOfBin = sizeof(Bin);
    if (isConvolution(length, LongTransform::longestWhole)) {
        auto const padded = static_cast<double>(ChirpTransform::paddedLength(length));
        return bytesOfBin *
               (static_cast<double>(length) + 3.0 * padded); // with those of FFTW, and what makes the filter
    }
    return bytesOfBin * static_cast<double>(length);
}

double RealTransform::bytesOfRoom(std::int64_t length)
{
    constexpr double bytesOfBin = sizeof(Bin);
    if (isConvolution(length, LongTransform::longestWhole)) {
        return bytesOfBin * 2.0 * static_cast<double>(ChirpTransform::paddedLength(length));
    }
    return isCut(length, LongTransform::longestWhole) ? bytesOfBin * 0.5 * static_cast<double>(length) : 0.0;
}

} // namespace veldraw::kernel

#include "kernel/compute/RealTransform.h"

#include "kernel/base/CheckedLoop.h"
#include "kernel/compute/ChirpTransform.h"

namespace veldraw::kernel {

namespace {

using Bin = RealTransform::Bin;

/// Up to here FFTW takes a prime factor by itself about as quickly as a longer convolution takes.
constexpr std::int64_t largestPlainFactor = 50;

constexpr std::int64_t effortOfWhole = 4; // for each value
constexpr double bytesOfBin = sizeof(Bin);

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

/// How a length is transformed.
enum class Kind
{
    Whole,       ///< by FFTW as it is
    Packed,      ///< as complex numbers, in columns and rows
    Convolution, ///< as one of another length
};

/// @param longest length that is transformed as a whole
Kind kindOf(std::int64_t length, std::int64_t longest = LongTransform::longestWhole)
{
    bool const isCut = length > longest;
    if (largestFactor(length) > largestPlainFactor || (isCut && length % 2 != 0)) {
        return Kind::Convolution;
    }
    return isCut ? Kind::Packed : Kind::Whole;
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
    void transform(double* numbers, Bin*, Progress& progress) const override
    {
        progress.check();
        m_plan->run(numbers);
        progress.advance(effortOfWhole * length());
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
    void transform(double* numbers, Bin* room, Progress& progress) const override
    {
        std::int64_t const half = m_half.length();
        auto* const bins = reinterpret_cast<Bin*>(numbers);
        m_half.run(bins, room, progress);
        forEachChecked(half + 1, progress, [&](std::int64_t k) {
            Bin const forward = room[k % half];
            Bin const backward = std::conj(room[(half - k) % half]);
            Bin const even = 0.5 * (forward + backward);
            Bin const odd = product({0.0, -0.5}, forward - backward);
            bins[k] = even + product(m_roots.at(static_cast<std::uint64_t>(k)), odd);
        });
        progress.advance(half);
    }

    LongTransform m_half;
    UnitRoots m_roots;
};

} // namespace

std::unique_ptr<RealTransform const> RealTransform::make(std::int64_t length, Progress& progress, std::int64_t longest)
{
    progress.check();
    switch (kindOf(length, longest)) {
    case Kind::Convolution:
        return std::make_unique<ChirpTransform>(length, progress);
    case Kind::Packed:
        return std::make_unique<PackedTransform>(length, longest);
    case Kind::Whole:
        break;
    }
    return std::make_unique<WholeTransform>(length);
}

/// The sums of bins without a partner are real; what rounding has left there would turn the phase of a negative one to -180.
RealTransform::Bin* RealTransform::run(double* numbers, Bin* room, Progress& progress) const
{
    transform(numbers, room, progress);
    auto* const bins = reinterpret_cast<Bin*>(numbers);
    bins[0].imag(0.0);
    if (m_length % 2 == 0) {
        bins[m_length / 2].imag(0.0);
    }
    return bins;
}

double RealTransform::bytesOfTables(std::int64_t length)
{
    switch (kindOf(length)) {
    case Kind::Convolution:
        return ChirpTransform::bytesOfTables(length);
    case Kind::Packed:
        return LongTransform::bytesOfTables(length / 2) + UnitRoots::bytesOf(length);
    case Kind::Whole:
        break;
    }
    return FourierPlan::bytesOfReal(length);
}

double RealTransform::bytesOfRoom(std::int64_t length)
{
    switch (kindOf(length)) {
    case Kind::Convolution:
        return ChirpTransform::bytesOfRoom(length);
    case Kind::Packed:
        return bytesOfBin * static_cast<double>(length / 2);
    case Kind::Whole:
        break;
    }
    return 0.0;
}

double RealTransform::bytesOfThread(std::int64_t length)
{
    switch (kindOf(length)) {
    case Kind::Convolution:
        return ChirpTransform::bytesOfThread(length);
    case Kind::Packed:
        return LongTransform::bytesOfThread(length / 2);
    case Kind::Whole:
        break;
    }
    return 0.0;
}

std::int64_t RealTransform::effortOfTables(std::int64_t length)
{
    return kindOf(length) == Kind::Convolution ? ChirpTransform::effortOfTables(length) : 0;
}

std::int64_t RealTransform::effortOfRun(std::int64_t length)
{
    switch (kindOf(length)) {
    case Kind::Convolution:
        return ChirpTransform::effortOfRun(length);
    case Kind::Packed:
        return LongTransform::effortOf(length / 2) + length / 2;
    case Kind::Whole:
        break;
    }
    return effortOfWhole * length;
}

} // namespace veldraw::kernel

#include "kernel/compute/ChirpTransform.h"

#include "kernel/base/CheckedLoop.h"

#include <algorithm>

namespace veldraw::kernel {

namespace {

constexpr std::int64_t effortOfRoot = 4;

/// The smallest multiple of 32 from @p least on that has no other factors than 2, 3 and 5: FFTW is quickest with these.
std::int64_t smoothLength(std::int64_t least)
{
    std::int64_t best = 32;
    while (best < least) {
        best *= 2;
    }
    for (std::int64_t fives = 32; fives < best; fives *= 5) {
        for (std::int64_t threes = fives; threes < best; threes *= 3) {
            std::int64_t candidate = threes;
            while (candidate < least) {
                candidate *= 2;
            }
            best = std::min(best, candidate);
        }
    }
    return best;
}

} // namespace

std::int64_t ChirpTransform::paddedLength(std::int64_t length)
{
    return smoothLength(length + length / 2); // differences k - n from 1 - length to length / 2
}

std::int64_t ChirpTransform::effortOfTables(std::int64_t length)
{
    return (effortOfRoot + 1) * length + LongTransform::effortOf(paddedLength(length));
}

std::int64_t ChirpTransform::effortOfRun(std::int64_t length)
{
    std::int64_t const padded = paddedLength(length);
    return 2 * padded + 2 * LongTransform::effortOf(padded) + length / 2;
}

ChirpTransform::ChirpTransform(std::int64_t length, Progress& progress, std::int64_t longest)
    : RealTransform(length)
    , m_convolution(paddedLength(length), longest)
    , m_chirp(static_cast<std::size_t>(length))
    , m_filter(static_cast<std::size_t>(m_convolution.length()))
{
    makeChirp(progress);
    makeFilter(progress);
}

/// Angles are by whole numbers, n^2 modulo 2 length, since n^2 itself has lost its last digits long before 1e9.
void ChirpTransform::makeChirp(Progress& progress)
{
    constexpr std::int64_t blockLength = 512;
    auto const turn = 2 * static_cast<std::uint64_t>(length());
    std::vector<std::uint64_t> starts; // of the blocks: n^2 modulo turn
    std::uint64_t square = 0;
    for (std::int64_t first = 0; first < length(); first += blockLength) {
        starts.push_back(square);
        square = (square + static_cast<std::uint64_t>(2 * first + blockLength) * blockLength) % turn;
    }
    forEachChecked(static_cast<std::int64_t>(starts.size()), progress, [&](std::int64_t block) {
        std::uint64_t number = starts[static_cast<std::size_t>(block)];
        std::int64_t const first = block * blockLength;
        for (std::int64_t n = first; n < std::min(first + blockLength, length()); ++n) {
            m_chirp[static_cast<std::size_t>(n)] = unitRoot(number, turn);
            number = (number + 2 * static_cast<std::uint64_t>(n) + 1) % turn;
        }
    });
    progress.advance(effortOfRoot * length());
}

void ChirpTransform::makeFilter(Progress& progress)
{
    std::size_t const size = m_filter.size();
    ZeroedArray<Bin> lags(size);
    double const share = 1.0 / static_cast<double>(size);
    Bin* const end = lags.end();
    forEachChecked(length(), progress, [&](std::int64_t lag) {
        Bin const inverse = std::conj(m_chirp[static_cast<std::size_t>(lag)]) * share;
        if (lag <= length() / 2) {
            lags[static_cast<std::size_t>(lag)] = inverse;
        }
        if (lag > 0) {
            end[-lag] = inverse; // negative ones stand at the end
        }
    });
    progress.advance(length());
    m_convolution.run(lags.begin(), m_filter.begin(), progress);
}

void ChirpTransform::transform(double* signal, Bin* bins, Bin* room, Progress& progress) const
{
    std::int64_t const size = m_convolution.length();
    Bin* const first = room;
    Bin* const second = room + size;
    Bin const* const chirp = m_chirp.begin();
    Bin const* const filter = m_filter.begin();
    forEachChecked(size, progress, [&](std::int64_t n) { first[n] = n < length() ? chirp[n] * signal[n] : Bin(); });
    progress.advance(size);
    m_convolution.run(first, second, progress);
    // The way back is a transform too, of conjugates.
    forEachChecked(size, progress, [&](std::int64_t k) { second[k] = std::conj(product(second[k], filter[k])); });
    progress.advance(size);
    m_convolution.run(second, first, progress);
    forEachChecked(length() / 2 + 1, progress,
                   [&](std::int64_t k) { bins[k] = product(chirp[k], std::conj(first[k])); });
    progress.advance(length() / 2);
}

} // namespace veldraw::kernel

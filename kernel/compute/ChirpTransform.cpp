#include "kernel/compute/ChirpTransform.h"

#include "kernel/base/CheckedLoop.h"

#include <algorithm>

namespace veldraw::kernel {

namespace {

constexpr std::int64_t effortOfRoot = 4;
constexpr double bytesOfBin = sizeof(RealTransform::Bin);

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

double ChirpTransform::bytesOfTables(std::int64_t length)
{
    std::int64_t const padded = paddedLength(length);
    return bytesOfBin * static_cast<double>(length + padded) + FourierTable::bytesOf(padded);
}

double ChirpTransform::bytesOfRoom(std::int64_t length)
{
    return bytesOfBin * static_cast<double>(paddedLength(length));
}

double ChirpTransform::bytesOfThread(std::int64_t length)
{
    return FourierTable::bytesOfThread(paddedLength(length));
}

std::int64_t ChirpTransform::effortOfTables(std::int64_t length)
{
    return effortOfRoot * length + 2 * FourierTable::effortOfLine * paddedLength(length);
}

std::int64_t ChirpTransform::effortOfRun(std::int64_t length)
{
    return 4 * FourierTable::effortOfLine * paddedLength(length);
}

ChirpTransform::ChirpTransform(std::int64_t length, Progress& progress)
    : RealTransform(length)
    , m_table(paddedLength(length))
    , m_chirp(static_cast<std::size_t>(length))
    , m_filter(static_cast<std::size_t>(paddedLength(length)))
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
    UnitRoots const roots(turn);
    forEachChecked(static_cast<std::int64_t>(starts.size()), progress, [&](std::int64_t block) {
        std::uint64_t number = starts[static_cast<std::size_t>(block)];
        std::int64_t const first = block * blockLength;
        for (std::int64_t n = first; n < std::min(first + blockLength, length()); ++n) {
            m_chirp[static_cast<std::size_t>(n)] = roots.at(number);
            number = (number + 2 * static_cast<std::uint64_t>(n) + 1) % turn;
        }
    });
    progress.advance(effortOfRoot * length());
}

void ChirpTransform::makeFilter(Progress& progress)
{
    std::int64_t const size = paddedLength(length());
    std::int64_t const columns = m_table.columns();
    double const share = 1.0 / static_cast<double>(size);
    transformColumns(m_filter.begin(), progress,
                     [&](std::int64_t row, std::int64_t first, std::int64_t count, Bin* values) {
                         for (std::int64_t at = 0; at < count; ++at) {
                             std::int64_t const number = row * columns + first + at;
                             std::int64_t const lag = number <= length() / 2 ? number : size - number;
                             values[at] = lag < length() ? std::conj(m_chirp[static_cast<std::size_t>(lag)]) * share
                                                         : Bin(); // negative lags stand at the end
                         }
                     });
    m_table.forEachRow(progress, 1, [&](std::int64_t first, std::int64_t count, Bin* results) {
        for (std::int64_t row = first; row < first + count; ++row) {
            Bin* const values = m_filter.begin() + row * columns;
            m_table.transformRow(values, results);
            std::copy_n(results, columns, values);
        }
    });
}

template <typename Load>
void ChirpTransform::transformColumns(Bin* numbers, Progress& progress, Load const& load) const
{
    m_table.forEachColumn(progress, load, [&](std::int64_t row, std::int64_t first, std::int64_t count, Bin* values) {
        m_table.turn(row, first, count, values);
        std::copy_n(values, count, numbers + row * m_table.columns() + first);
    });
}

/// The way back is a transform too, of conjugates.
void ChirpTransform::filter(Bin* numbers, Progress& progress) const
{
    std::int64_t const columns = m_table.columns();
    m_table.forEachRow(progress, 2, [&](std::int64_t first, std::int64_t count, Bin* bins) {
        for (std::int64_t row = first; row < first + count; ++row) {
            Bin* const values = numbers + row * columns;
            Bin const* const factors = m_filter.begin() + row * columns;
            m_table.transformRow(values, bins);
            for (std::int64_t at = 0; at < columns; ++at) {
                bins[at] = std::conj(product(bins[at], factors[at]));
            }
            m_table.transformRow(bins, values);
        }
    });
}

void ChirpTransform::transform(double* numbers, Bin* room, Progress& progress) const
{
    auto* const bins = reinterpret_cast<Bin*>(numbers);
    std::int64_t const columns = m_table.columns();
    Bin const* const chirp = m_chirp.begin();
    transformColumns(room, progress, [&](std::int64_t row, std::int64_t first, std::int64_t count, Bin* values) {
        std::int64_t const start = row * columns + first;
        std::int64_t const inside = std::clamp<std::int64_t>(length() - start, 0, count);
        for (std::int64_t at = 0; at < inside; ++at) {
            values[at] = chirp[start + at] * numbers[start + at];
        }
        std::fill(values + inside, values + count, Bin());
    });
    filter(room, progress);
    m_table.forEachColumn(
        progress,
        [&](std::int64_t row, std::int64_t first, std::int64_t count, Bin* values) {
            std::copy_n(room + row * columns + first, count, values);
            m_table.turn(row, first, count, values);
        },
        [&](std::int64_t row, std::int64_t first, std::int64_t count, Bin* values) {
            std::int64_t const start = row * columns + first;
            for (std::int64_t at = 0; at < std::min(count, length() / 2 + 1 - start); ++at) {
                bins[start + at] = product(chirp[start + at], std::conj(values[at]));
            }
        });
}

} // namespace veldraw::kernel

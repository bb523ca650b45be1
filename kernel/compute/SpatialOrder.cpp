#include "kernel/compute/SpatialOrder.h"

#include "kernel/base/Parallel.h"
#include "kernel/compute/PointBox.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace veldraw::kernel {

namespace {

constexpr int bitsOfKey = 21; // for each coordinate; three of them fit in 64 bits
constexpr std::int64_t crowd = 64;
constexpr std::size_t runsBetweenChecks = 1024;
constexpr unsigned digits = 256;
constexpr unsigned bitsOfDigit = 8;

/// The lowest 21 bits of @p number, each followed by @p gap zero bits.
std::uint64_t spread(std::uint64_t number, int gap)
{
    std::uint64_t result = 0;
    for (int bit = 0; bit < bitsOfKey; ++bit) {
        result |= (number >> bit & 1U) << (bit * (gap + 1));
    }
    return result;
}

/// The spread of each byte, from which that of a larger number is put together.
class SpreadTable
{
public:
    explicit SpreadTable(int dimensions)
        : m_dimensions(dimensions)
    {
        for (unsigned byte = 0; byte < m_table.size(); ++byte) {
            m_table[byte] = spread(byte, dimensions - 1);
        }
    }

    std::uint64_t spreadOf(std::uint64_t number) const
    {
        std::uint64_t result = 0;
        for (int shift = 0; shift < bitsOfKey; shift += 8) {
            result |= m_table[number >> shift & 0xffU] << (shift * m_dimensions);
        }
        return result;
    }

private:
    int m_dimensions;
    std::array<std::uint64_t, 256> m_table{};
};

/// Cell numbers of points in a grid of cubes over their box, which lie along a Morton curve.
class MortonKeys
{
public:
    MortonKeys(PointReader const& reader, Box const& box)
        : m_reader(reader)
        , m_low(box.low)
        , m_table(reader.dimensions())
    {
        double extent = 0.0;
        for (std::size_t axis = 0; axis < static_cast<std::size_t>(reader.dimensions()); ++axis) {
            extent = std::max(extent, box.high[axis] - box.low[axis]);
        }
        constexpr double most = (1U << bitsOfKey) - 1;
        m_scale = extent > 0.0 ? most / extent : 0.0;
    }

    /// Whether all points are the same one.
    bool areAllEqual() const { return m_scale <= 0.0; }

    /// Whether the points get more than one key: not those that differ by denormal numbers alone.
    bool canDivide() const { return std::isfinite(m_scale); }

    std::uint64_t keyOf(std::uint32_t point) const
    {
        Point place{};
        m_reader.read(point, place.data());
        std::uint64_t key = 0;
        for (int axis = 0; axis < m_reader.dimensions(); ++axis) {
            auto const at = static_cast<std::size_t>(axis);
            key |= m_table.spreadOf(static_cast<std::uint64_t>((place[at] - m_low[at]) * m_scale)) << axis;
        }
        return key;
    }

private:
    PointReader const& m_reader;
    Point m_low;
    SpreadTable m_table;
    double m_scale = 0.0;
};

/// Points with their keys, sorted digit by digit, the lowest first.
class RadixSort
{
public:
    RadixSort(std::uint32_t* points, std::vector<std::uint64_t>& keys, Progress& progress)
        : m_points(points)
        , m_count(static_cast<std::int64_t>(keys.size()))
        , m_progress(progress)
        , m_keys(keys)
        , m_otherKeys(keys.size())
        , m_otherPoints(keys.size())
    {
    }

    void sort()
    {
        for (unsigned shift = 0; shift < 64; shift += bitsOfDigit) {
            sortByDigit(shift);
            m_progress.reach((shift + bitsOfDigit) /
                             64.0); // once for all points, then again for those of crowded cells
        }
    }

private:
    using Counts = std::array<std::int64_t, digits>;

    void sortByDigit(unsigned shift)
    {
        std::vector<Counts> places(static_cast<std::size_t>(parallelChunkCount(m_count)));
        auto const digitOf = [shift](std::uint64_t key) {
            return static_cast<std::size_t>(key >> shift & (digits - 1));
        };
        parallelFor(m_count, [&](std::int64_t first, std::int64_t last, std::int64_t chunk) {
            m_progress.check();
            Counts& counts = places[static_cast<std::size_t>(chunk)];
            counts.fill(0);
            for (std::int64_t at = first; at < last; ++at) {
                ++counts[digitOf(m_keys[static_cast<std::size_t>(at)])];
            }
        });
        if (!makePlaces(places)) {
            return;
        }
        parallelFor(m_count, [&](std::int64_t first, std::int64_t last, std::int64_t chunk) {
            m_progress.check();
            Counts& next = places[static_cast<std::size_t>(chunk)];
            for (std::int64_t at = first; at < last; ++at) {
                std::uint64_t const key = m_keys[static_cast<std::size_t>(at)];
                auto const place = static_cast<std::size_t>(next[digitOf(key)]++);
                m_otherKeys[place] = key;
                m_otherPoints[place] = m_points[at];
            }
        });
        m_keys.swap(m_otherKeys);
        std::copy(m_otherPoints.begin(), m_otherPoints.end(), m_points);
    }

    /// Turns counts into the places of the first key of each digit. @return false when all keys have the same digit
    bool makePlaces(std::vector<Counts>& counts) const
    {
        std::int64_t place = 0;
        for (std::size_t digit = 0; digit < digits; ++digit) {
            std::int64_t const before = place;
            for (Counts& chunk : counts) {
                std::int64_t const count = chunk[digit];
                chunk[digit] = place;
                place += count;
            }
            if (place - before == m_count) {
                return false;
            }
        }
        return true;
    }

    std::uint32_t* m_points;
    std::int64_t m_count;
    Progress& m_progress;
    std::vector<std::uint64_t>& m_keys;
    std::vector<std::uint64_t> m_otherKeys;
    std::vector<std::uint32_t> m_otherPoints;
};

using PlacesOfPoints = std::vector<std::pair<Point, std::uint32_t>>;

/// Sorts a few points by their coordinates, then by number. @param places room for them
void sortFew(PointReader const& reader, std::uint32_t* points, std::int64_t count, PlacesOfPoints& places)
{
    places.assign(static_cast<std::size_t>(count), {});
    for (std::size_t at = 0; at < places.size(); ++at) {
        places[at].second = points[at];
        reader.read(points[at], places[at].first.data());
    }
    std::sort(places.begin(), places.end());
    std::transform(places.begin(), places.end(), points, [](auto const& place) { return place.second; });
}

void sortPart(PointReader const& reader, std::uint32_t* points, std::int64_t count, Progress& progress);

/// Sorts the points of each run of equal keys.
void sortRuns(PointReader const& reader, std::vector<std::uint64_t> const& keys, std::uint32_t* points,
              Progress& progress)
{
    auto run = keys.begin();
    PlacesOfPoints places;
    for (std::size_t number = 0; run != keys.end(); ++number) {
        if (number % runsBetweenChecks == 0) {
            progress.check();
        }
        auto const end = std::find_if(run, keys.end(), [run](std::uint64_t key) { return key != *run; });
        std::int64_t const count = end - run;
        std::uint32_t* const first = points + (run - keys.begin());
        if (count > crowd) {
            sortPart(reader, first, count, progress);
        } else if (count > 1) {
            sortFew(reader, first, count, places);
        }
        run = end;
    }
}

/// The keys of points, which are sorted by them.
std::vector<std::uint64_t> sortByKeys(MortonKeys const& morton, std::uint32_t* points, std::int64_t count,
                                      Progress& progress)
{
    std::vector<std::uint64_t> keys(static_cast<std::size_t>(count));
    parallelFor(count, [&](std::int64_t first, std::int64_t last, std::int64_t) {
        progress.check();
        for (std::int64_t at = first; at < last; ++at) {
            keys[static_cast<std::size_t>(at)] = morton.keyOf(points[at]);
        }
    });
    RadixSort(points, keys, progress).sort();
    return keys;
}

void sortPart(PointReader const& reader, std::uint32_t* points, std::int64_t count, Progress& progress)
{
    progress.check();
    MortonKeys const morton(reader, boxOf(reader, points, count, progress));
    if (morton.areAllEqual()) {
        return;
    }
    if (!morton.canDivide()) {
        PlacesOfPoints places;
        return sortFew(reader, points, count, places);
    }
    sortRuns(reader, sortByKeys(morton, points, count, progress), points, progress);
}

} // namespace

void sortInSpace(PointReader const& reader, std::vector<std::uint32_t>& points, Progress& progress)
{
    if (!points.empty()) {
        sortPart(reader, points.data(), static_cast<std::int64_t>(points.size()), progress);
    }
}

} // namespace veldraw::kernel

#include "kernel/compute/ListSmoothing.h"

#include "kernel/base/Parallel.h"
#include "kernel/base/ZeroedArray.h"
#include "kernel/compute/ValueBlock.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>
#include <vector>

namespace veldraw::kernel {

namespace {

constexpr std::int64_t fewestInPart = 4096; // some ten microseconds
constexpr std::int64_t partsForThreads = 64;
constexpr std::int64_t cachedPlaces = 12288; // with their values and lists in a usual second-level cache
constexpr std::int64_t mostPassesAtATime = 8;
constexpr std::int64_t placesAhead = 2048;

/// The sum of the differences of six neighbours to a value. Equal values make it 0 to the last bit, since six times a value and the sum of
/// six equal ones are rounded alike. By pairs, as an addition waits for the one before.
double differencesOfSix(double const* before, std::uint32_t const* neighbor, double value)
{
    double const one = before[neighbor[0]] + before[neighbor[1]];
    double const two = before[neighbor[2]] + before[neighbor[3]];
    double const three = before[neighbor[4]] + before[neighbor[5]];
    return ((one + two) + three) - 6 * value;
}

double meanDifference(double const* before, std::uint32_t const* begin, std::uint32_t const* end, double value)
{
    double sum = 0.0;
    std::uint32_t const* neighbor = begin;
    for (; end - neighbor >= 6; neighbor += 6) {
        sum += differencesOfSix(before, neighbor, value);
    }
    for (; neighbor < end; ++neighbor) {
        sum += before[*neighbor] - value;
    }
    return end > begin ? sum / static_cast<double>(end - begin) : 0.0;
}

/// One pass over the places from first to before last. @return the largest change, if it is measured
template <bool isMeasured>
double makePassOver(NeighborLists const& lists, double weight, double const* before, double* after, std::int64_t first,
                    std::int64_t last)
{
    double largest = 0.0;
    double const shareOfSix = weight / 6;
    std::uint32_t const* neighbor = lists.neighbors.begin() + lists.starts[static_cast<std::size_t>(first)];
    for (std::int64_t place = first; place < last; ++place) {
        double const value = before[place];
        std::uint32_t const* const end = lists.neighbors.begin() + lists.starts[static_cast<std::size_t>(place) + 1];
        double const change = end - neighbor == 6 // the most frequent number
                                  ? shareOfSix * differencesOfSix(before, neighbor, value)
                                  : weight * meanDifference(before, neighbor, end, value);
        neighbor = end;
        after[place] = value + change;
        if constexpr (isMeasured) {
            largest = std::max(largest, std::fabs(change));
        }
    }
    return largest;
}

/// Makes passes over all places, some of them at a time while the places are in the cache.
///
/// The places are divided into parts. In each part the passes follow each other through the places, a pass behind the one
/// before by the reach of neighbors; at an end of the part each stops as far before the other as that. Then the gaps at the
/// ends of parts are filled, which widen from pass to pass. Two arrays are enough: a pass writes over what was before the
/// last one, which nobody needs any more at these places.
class ListPasses
{
public:
    ListPasses(NeighborLists const& lists, double weight, ZeroedArray<double>& before, ZeroedArray<double>& after,
               Progress& progress)
        : m_lists(lists)
        , m_weight(weight)
        , m_arrays{before.begin(), after.begin()}
        , m_progress(progress)
        , m_count(lists.count())
        , m_atATime(
              std::clamp<std::int64_t>(cachedPlaces / std::max<std::int64_t>(lists.reach, 1), 1, mostPassesAtATime))
    {
        std::int64_t const least = std::max(fewestInPart, 4 * m_atATime * m_lists.reach);
        m_parts = m_atATime > 1 ? std::clamp<std::int64_t>(m_count / least, 1, partsForThreads)
                                : std::min(partsForThreads, m_count / fewestInPart + 1);
    }

    /// @return the largest change in the last pass; the values are in the first array after an even number of passes, else in the second
    double make(std::int64_t passes)
    {
        std::vector<double> changes(static_cast<std::size_t>(2 * m_parts));
        for (std::int64_t done = 0; done < passes; done += m_atATime) {
            std::int64_t const now = std::min(m_atATime, passes - done);
            m_measured = done + now == passes ? now : 0;
            forEachInParallel(
                m_parts, [&](std::int64_t part) { changes[static_cast<std::size_t>(part)] = passThrough(part, now); });
            forEachInParallel(now > 1 ? m_parts - 1 : 0, [&](std::int64_t gap) {
                changes[static_cast<std::size_t>(m_parts + gap)] = fill(border(gap + 1), now);
            });
            if (now % 2 != 0) {
                std::swap(m_arrays[0], m_arrays[1]);
            }
        }
        return *std::max_element(changes.begin(), changes.end());
    }

private:
    std::int64_t border(std::int64_t part) const
    {
        return m_count / m_parts * part + std::min(part, m_count % m_parts);
    }

    /// @return the largest change in the pass that is measured
    double passThrough(std::int64_t part, std::int64_t passes) const
    {
        std::int64_t const first = border(part);
        std::int64_t const last = border(part + 1);
        std::int64_t const reach = passes > 1 ? m_lists.reach : 0;
        std::int64_t const gapBefore = part > 0 ? reach : 0;
        std::int64_t const gapAfter = part + 1 < m_parts ? reach : 0;
        std::array<std::int64_t, mostPassesAtATime + 1> done{};
        for (std::int64_t pass = 1; pass <= passes; ++pass) {
            done[static_cast<std::size_t>(pass)] = first + pass * gapBefore;
        }
        double largest = 0.0;
        for (std::int64_t front = first; front < last + (passes - 1) * reach;) {
            front += placesAhead;
            for (std::int64_t pass = 1; pass <= passes; ++pass) {
                std::int64_t& from = done[static_cast<std::size_t>(pass)];
                std::int64_t const to = std::min(last - pass * gapAfter, front - (pass - 1) * reach);
                if (from < to) {
                    largest = std::max(largest, makePass(pass, from, to));
                    from = to;
                }
            }
        }
        return largest;
    }

    /// Fills the gap around the border of two parts.
    double fill(std::int64_t middle, std::int64_t passes) const
    {
        double largest = 0.0;
        for (std::int64_t pass = 1; pass <= passes; ++pass) {
            largest = std::max(largest, makePass(pass, middle - pass * m_lists.reach, middle + pass * m_lists.reach));
        }
        return largest;
    }

    double makePass(std::int64_t pass, std::int64_t first, std::int64_t last) const
    {
        double const* const before = m_arrays[static_cast<std::size_t>((pass - 1) % 2)];
        double* const after = m_arrays[static_cast<std::size_t>(pass % 2)];
        auto const makePart = pass == m_measured ? makePassOver<true> : makePassOver<false>;
        double largest = 0.0;
        for (std::int64_t at = first; at < last; at += blockSize) {
            m_progress.check();
            std::int64_t const end = std::min(at + blockSize, last);
            largest = std::max(largest, makePart(m_lists, m_weight, before, after, at, end));
        }
        m_progress.advance(last - first);
        return largest;
    }

    NeighborLists const& m_lists;
    double m_weight;
    std::array<double*, 2> m_arrays;
    Progress& m_progress;
    std::int64_t m_count;
    std::int64_t m_atATime;
    std::int64_t m_parts;
    std::int64_t m_measured = 0; // the pass whose changes count
};

/// Values in their own order and in that of their places.
class Arrangement
{
public:
    Arrangement(ZeroedArray<std::uint32_t> const& order, Progress& progress)
        : m_order(order)
        , m_progress(progress)
    {
    }

    /// @param values in their own order, in which they are left where that is the one of the places
    void toPlaces(ZeroedArray<double>& values, ZeroedArray<double>& room)
    {
        move(values, room, [this](std::size_t place) { return std::pair{place, std::size_t{m_order[place]}}; });
    }

    void fromPlaces(ZeroedArray<double>& values, ZeroedArray<double>& room)
    {
        move(values, room, [this](std::size_t place) { return std::pair{std::size_t{m_order[place]}, place}; });
    }

private:
    /// @param wayOf where a value goes, and where it comes from
    template <typename WayOf>
    void move(ZeroedArray<double>& values, ZeroedArray<double>& room, WayOf const& wayOf)
    {
        if (m_order.isEmpty()) {
            return;
        }
        forEachBlock(static_cast<std::int64_t>(values.size()), m_progress, [&](std::int64_t first, std::int64_t size) {
            for (auto place = static_cast<std::size_t>(first); place < static_cast<std::size_t>(first + size);
                 ++place) {
                auto const [to, from] = wayOf(place);
                room[to] = values[from];
            }
        });
        std::swap(values, room);
    }

    ZeroedArray<std::uint32_t> const& m_order;
    Progress& m_progress;
};

} // namespace

SmoothingOutcome smoothByLists(NeighborLists const& lists, SmoothingRule const& rule, SmoothingValues& values,
                               Progress& progress)
{
    std::int64_t const count = lists.count();
    progress.setTotal(rule.passes * count);
    requireMemory(values.promisedBytes() + 2.0 * sizeof(double) * static_cast<double>(count));
    ZeroedArray<double> before(static_cast<std::size_t>(count));
    ZeroedArray<double> after(static_cast<std::size_t>(count));
    Progress moving(progress, 0);
    Arrangement arrangement(lists.order, moving);
    forEachBlock(count, moving,
                 [&](std::int64_t first, std::int64_t size) { values.read(first, size, before.begin() + first); });
    arrangement.toPlaces(before, after);
    double const largest = ListPasses(lists, rule.weight, before, after, progress).make(rule.passes);
    if (rule.passes % 2 != 0) {
        std::swap(before, after);
    }
    arrangement.fromPlaces(before, after);
    forEachBlock(count, moving,
                 [&](std::int64_t first, std::int64_t size) { values.store(first, size, before.begin() + first); });
    return {lists.held, values.inUnits(largest)};
}

} // namespace veldraw::kernel

#pragma once

#include "kernel/compute/NeighborSearch.h"
#include "tests/kernel/support/RandomZones.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace veldraw::tests {

/// The source points of one variable that count, and which of them are the neighbours of a place: by going through all of them.
class ReferencePoints
{
public:
    using Place = RandomZone::Place;

    struct Source
    {
        Place place;
        long double value;
    };

    explicit ReferencePoints(std::size_t axes)
        : m_axes(axes)
    {
    }

    /// Adds what is neither hidden nor without a finite value. @param variable number behind the coordinates, from 0
    void add(RandomZone const& zone, std::size_t variable, ValueLocation_e location)
    {
        std::vector<std::size_t> const slots = zone.slots(location);
        for (std::size_t number = 0; number < slots.size(); ++number) {
            double const value = zone.numbers[variable][slots[number]];
            if (!zone.isHidden(location, number) && std::isfinite(value)) {
                m_sources.push_back({zone.place(location, number), value});
            }
        }
    }

    /// Makes one point, with the mean value, of those at one place.
    void mergePoints()
    {
        std::vector<Source> merged;
        std::vector<long double> counts;
        for (Source const& source : m_sources) {
            auto const same = std::find_if(merged.begin(), merged.end(), [&](Source const& other) {
                return squaredDistance(other.place, source.place) <= 0.0L;
            });
            if (same == merged.end()) {
                merged.push_back(source);
                counts.push_back(1.0L);
            } else {
                same->value += source.value;
                counts[static_cast<std::size_t>(same - merged.begin())] += 1.0L;
            }
        }
        for (std::size_t at = 0; at < merged.size(); ++at) {
            merged[at].value /= counts[at];
        }
        m_sources = std::move(merged);
    }

    /// The neighbours of a place, the nearest first, and of equally near ones the one that was added first.
    std::vector<Source> neighbors(Place const& target, kernel::NeighborChoice const& choice) const
    {
        std::vector<std::pair<long double, std::size_t>> order;
        for (std::size_t at = 0; at < m_sources.size(); ++at) {
            order.emplace_back(squaredDistance(m_sources[at].place, target), at);
        }
        std::sort(order.begin(), order.end());
        std::vector<Source> sorted;
        for (auto const& [square, at] : order) {
            sorted.push_back(m_sources[at]);
        }
        if (choice.selection == PtSelection_NearestN) {
            sorted.resize(std::min(sorted.size(), static_cast<std::size_t>(choice.count)));
        }
        return choice.selection == PtSelection_Octant ? ofOctants(sorted, target, choice.count) : sorted;
    }

    std::vector<Source> const& all() const { return m_sources; }

    long double squaredDistance(Place const& a, Place const& b) const
    {
        long double square = 0.0L;
        for (std::size_t axis = 0; axis < m_axes; ++axis) {
            long double const difference = static_cast<long double>(a[axis]) - b[axis];
            square += difference * difference;
        }
        return square;
    }

    /// Of the box around all points.
    long double diagonal() const
    {
        Place low = m_sources.front().place;
        Place high = low;
        for (Source const& source : m_sources) {
            for (std::size_t axis = 0; axis < m_axes; ++axis) {
                low[axis] = std::min(low[axis], source.place[axis]);
                high[axis] = std::max(high[axis], source.place[axis]);
            }
        }
        return std::sqrt(squaredDistance(low, high));
    }

private:
    /// Each octant gives its share; what is left over goes to the nearest of those that come next in their octants.
    std::vector<Source> ofOctants(std::vector<Source> const& sorted, Place const& target, std::int64_t count) const
    {
        std::size_t const octants = std::size_t{1} << m_axes;
        std::size_t const share = static_cast<std::size_t>(count) / octants;
        std::size_t rest = static_cast<std::size_t>(count) % octants;
        std::vector<std::size_t> taken(octants, 0);
        std::vector<Source> chosen;
        for (Source const& source : sorted) {
            std::size_t octant = 0;
            for (std::size_t axis = 0; axis < m_axes; ++axis) {
                octant += source.place[axis] >= target[axis] ? std::size_t{1} << axis : 0;
            }
            bool const isNext = taken[octant] == share && rest > 0;
            if (taken[octant] < share || isNext) {
                chosen.push_back(source);
                ++taken[octant];
                rest -= isNext ? 1 : 0;
            }
        }
        return chosen;
    }

    std::size_t m_axes;
    std::vector<Source> m_sources;
};

} // namespace veldraw::tests

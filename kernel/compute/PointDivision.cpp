#include "kernel/compute/PointDivision.h"

#include "kernel/base/Parallel.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <limits>

namespace veldraw::kernel {

namespace {

constexpr std::size_t pointsBetweenChecks = 1 << 20;
constexpr double noLimit = std::numeric_limits<double>::infinity();

template <std::size_t Axes>
class PointDivision
{
public:
    PointDivision(std::size_t leafSize, double* places, std::vector<std::uint32_t>& points, Progress& progress)
        : m_leafSize(leafSize)
        , m_places(places)
        , m_points(points)
        , m_progress(progress)
    {
    }

    void divide()
    {
        std::vector<Part> parts{{0, m_points.size(), fullSize()}};
        countLevels(parts.front());
        while (!parts.empty()) {
            std::vector<std::array<Part, 2>> halves(parts.size());
            forEachInParallel(static_cast<std::int64_t>(parts.size()), [&](std::int64_t part) {
                auto const at = static_cast<std::size_t>(part);
                halves[at] = parts.size() < manyParts ? divided(parts[at]) : dividedToTheEnd(parts[at]);
            });
            parts.clear();
            for (auto const& pair : halves) {
                std::copy_if(pair.begin(), pair.end(), std::back_inserter(parts),
                             [this](Part const& part) { return part.last - part.first > m_leafSize; });
            }
        }
    }

private:
    static constexpr std::size_t manyParts = 64;

    struct Part
    {
        std::size_t first = 0;
        std::size_t last = 0;
        std::size_t size = 0; ///< that it would have if it were full: that of a leaf times a power of 2
    };

    std::size_t fullSize() const
    {
        std::size_t size = m_leafSize;
        while (size < m_points.size()) {
            size *= 2;
        }
        return size;
    }

    /// Each point is in one part of each level.
    void countLevels(Part const& whole)
    {
        std::size_t levels = 0;
        for (std::size_t size = whole.size; size > m_leafSize; size /= 2) {
            ++levels;
        }
        m_progress.setTotal(static_cast<std::int64_t>(levels * m_points.size()));
    }

    /// Its first half is full, so that leaves and families are full up to the last one.
    std::array<Part, 2> divided(Part const& part)
    {
        m_progress.check();
        std::size_t size = part.size / 2;
        while (size >= part.last - part.first) {
            size /= 2;
        }
        std::size_t const middle = part.first + size;
        select(part, middle, longestSide(part));
        m_progress.advance(static_cast<std::int64_t>(part.last - part.first));
        return {Part{part.first, middle, size}, Part{middle, part.last, size}};
    }

    std::array<Part, 2> dividedToTheEnd(Part const& part)
    {
        std::vector<Part> parts{part};
        while (!parts.empty()) {
            Part const next = parts.back();
            parts.pop_back();
            if (next.last - next.first > m_leafSize) {
                std::array<Part, 2> const halves = divided(next);
                parts.insert(parts.end(), halves.begin(), halves.end());
            }
        }
        return {};
    }

    std::size_t longestSide(Part const& part) const
    {
        std::array<double, Axes> low;
        low.fill(noLimit);
        std::array<double, Axes> high;
        high.fill(-noLimit);
        for (std::size_t at = part.first; at < part.last; ++at) {
            if (at % pointsBetweenChecks == 0) {
                m_progress.check();
            }
            for (std::size_t axis = 0; axis < Axes; ++axis) {
                double const coordinate = m_places[at * Axes + axis];
                low[axis] = std::min(low[axis], coordinate);
                high[axis] = std::max(high[axis], coordinate);
            }
        }
        std::size_t longest = 0;
        for (std::size_t axis = 1; axis < Axes; ++axis) {
            longest = high[axis] - low[axis] > high[longest] - low[longest] ? axis : longest;
        }
        return longest;
    }

    double coordinate(std::size_t at, std::size_t axis) const { return m_places[at * Axes + axis]; }

    void swap(std::size_t a, std::size_t b)
    {
        std::swap_ranges(m_places + a * Axes, m_places + (a + 1) * Axes, m_places + b * Axes);
        std::swap(m_points[a], m_points[b]);
    }

    /// Puts the points before @p middle that have the smaller coordinates (C. A. R. Hoare, 1961: Find).
    void select(Part const& part, std::size_t middle, std::size_t axis)
    {
        std::size_t first = part.first;
        std::size_t last = part.last - 1;
        std::uint64_t seed = part.first;
        while (first < last) {
            m_progress.check();
            double const pivot = medianOfThree(first, last, axis, seed++);
            std::size_t low = first;
            std::size_t high = last;
            while (true) {
                for (; coordinate(low, axis) < pivot; ++low) {
                }
                for (; coordinate(high, axis) > pivot; --high) {
                }
                if (low >= high) {
                    break;
                }
                swap(low++, high--);
                if (low % pointsBetweenChecks == 0) {
                    m_progress.check();
                }
            }
            // Before low nothing is above the pivot, after high nothing is below; where they meet is the pivot itself.
            bool const isMet = low == high;
            if (middle == high + 1 || (isMet && middle == high)) {
                return;
            }
            if (middle <= high) {
                last = isMet ? high - 1 : high;
            } else {
                first = high + 1;
            }
        }
    }

    /// The median of three coordinates at scattered places: at fixed ones, some orders of points would take quadratic time.
    double medianOfThree(std::size_t first, std::size_t last, std::size_t axis, std::uint64_t seed) const
    {
        auto const scattered = [&](std::uint64_t number) {
            std::uint64_t const mixed = (3 * seed + number + 1) * 0x9e3779b97f4a7c15U;
            return coordinate(first + (mixed >> 24U) % (last - first + 1), axis);
        };
        double const a = scattered(0);
        double const b = scattered(1);
        double const c = scattered(2);
        return std::max(std::min(a, b), std::min(std::max(a, b), c));
    }

    std::size_t m_leafSize;
    double* m_places;
    std::vector<std::uint32_t>& m_points;
    Progress& m_progress;
};

} // namespace

void dividePoints(std::size_t axes, std::size_t leafSize, double* places, std::vector<std::uint32_t>& points,
                  Progress& progress)
{
    if (axes == 2) {
        PointDivision<2>(leafSize, places, points, progress).divide();
    } else {
        PointDivision<3>(leafSize, places, points, progress).divide();
    }
}

} // namespace veldraw::kernel

#pragma once

#include "kernel/compute/NeighborSearch.h"
#include "kernel/compute/SearchTree.h"
#include "kernel/compute/WideLanes.h"

#include <algorithm>
#include <limits>
#include <numeric>
#include <vector>

namespace veldraw::kernel {

constexpr std::size_t manyOnTheList = 64; ///< from here on a heap is quicker than a sorted list
constexpr std::size_t comparisonsBetweenChecks = 65536;

constexpr std::size_t mostAtOnce = 64; ///< candidates that NearestList::fill() takes; a multiple of familyWidth

/// Nearer neighbours first; where distances are equal, the lower number first.
struct NearestFirst
{
    std::uint32_t const* points;

    VELDRAW_INLINE bool operator()(Neighbor const& a, Neighbor const& b) const
    {
        if (a.squaredDistance < b.squaredDistance || a.squaredDistance > b.squaredDistance) {
            return a.squaredDistance < b.squaredDistance;
        }
        return points[a.place] < points[b.place];
    }
};

/// Nearest points of all, or of one octant: sorted, or from many on as a heap with the farthest on top.
class NearestList
{
public:
    /// Takes all the memory that the list will need: offer() is called where nothing may be thrown.
    /// @param capacity at least 1; @param bound of the squared distances; @param points numbers of the points by place
    void reset(std::size_t capacity, double bound, std::vector<std::uint32_t> const& points)
    {
        m_capacity = capacity;
        m_bound = bound;
        m_isBefore.points = points.data();
        m_list.clear();
        m_list.reserve(capacity);
    }

    /// What is farther away is not among the nearest.
    VELDRAW_INLINE double worst() const { return m_bound; }

    VELDRAW_INLINE void offer(double squaredDistance, std::uint32_t place)
    {
        Neighbor const neighbor{squaredDistance, place};
        if (m_list.size() == m_capacity && !m_isBefore(neighbor, worstOne())) {
            return;
        }
        insert(neighbor);
    }

    /// Puts the nearest of some candidates on the list, in order. Quicker than offering one after the other, as nothing is decided on the
    /// way: the place of each is the number of those that are nearer.
    /// @param squares their squared distances, at most mostAtOnce and room for as many; @pre the list is empty
    VELDRAW_INLINE void fill(double* squares, std::uint32_t const* places, std::size_t count)
    {
        std::size_t const padded = (count + familyWidth - 1) / familyWidth * familyWidth;
        std::fill(squares + count, squares + padded, std::numeric_limits<double>::infinity());
        std::uint64_t ranks[mostAtOnce] = {};
        for (std::size_t other = 0; other < count; ++other) {
            double const square = squares[other];
            for (std::size_t at = 0; at < padded; ++at) {
                ranks[at] += square < squares[at] ? 1U : 0U;
            }
        }
        std::uint64_t const sum = std::accumulate(ranks, ranks + count, std::uint64_t{0});
        bool const areDifferent = sum == count * (count - 1) / 2;
        if (isHeap() || !areDifferent) {
            offerAll(squares, places, count);
            return;
        }
        m_list.resize(std::min(m_capacity, count));
        for (std::size_t at = 0; at < count; ++at) {
            if (ranks[at] < m_capacity) {
                m_list[ranks[at]] = {squares[at], places[at]};
            }
        }
    }

    VELDRAW_INLINE void offerAll(double const* squares, std::uint32_t const* places, std::size_t count)
    {
        for (std::size_t at = 0; at < count; ++at) {
            if (squares[at] <= m_bound) {
                offer(squares[at], places[at]);
            }
        }
    }

    bool isEmpty() const { return m_list.empty(); }

    /// @throws Interrupted
    void sort(Progress const& progress)
    {
        if (!isHeap()) {
            return;
        }
        std::size_t comparisons = 0;
        std::sort(m_list.begin(), m_list.end(), [&](Neighbor const& a, Neighbor const& b) {
            if (++comparisons % comparisonsBetweenChecks == 0) {
                progress.check();
            }
            return m_isBefore(a, b);
        });
    }

    std::vector<Neighbor> const& list() const { return m_list; }

private:
    bool isHeap() const { return m_capacity > manyOnTheList; }
    Neighbor const& worstOne() const { return isHeap() ? m_list.front() : m_list.back(); }

    void insert(Neighbor const& neighbor)
    {
        bool const isFull = m_list.size() == m_capacity;
        if (isHeap()) {
            if (isFull) {
                std::pop_heap(m_list.begin(), m_list.end(), m_isBefore);
                m_list.pop_back();
            }
            m_list.push_back(neighbor);
            std::push_heap(m_list.begin(), m_list.end(), m_isBefore);
        } else {
            if (!isFull) {
                m_list.push_back(neighbor);
            }
            std::size_t at = m_list.size() - 1;
            for (; at > 0 && m_isBefore(neighbor, m_list[at - 1]); --at) {
                m_list[at] = m_list[at - 1];
            }
            m_list[at] = neighbor;
        }
        if (m_list.size() == m_capacity) {
            m_bound = std::min(m_bound, worstOne().squaredDistance);
        }
    }

    std::size_t m_capacity = 0;
    double m_bound = std::numeric_limits<double>::infinity();
    NearestFirst m_isBefore{nullptr};
    std::vector<Neighbor> m_list;
};

} // namespace veldraw::kernel

#pragma once

#include "kernel/compute/NeighborSearch.h"
#include "kernel/compute/WideLanes.h"

#include <algorithm>
#include <limits>
#include <vector>

namespace veldraw::kernel {

constexpr std::size_t manyOnTheList = 64; ///< from here on a heap is quicker than a sorted list
constexpr std::size_t comparisonsBetweenChecks = 65536;

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

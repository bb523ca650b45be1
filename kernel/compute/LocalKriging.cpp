#include "kernel/compute/LocalKriging.h"

#include "kernel/compute/CarefulKriging.h"

#include <algorithm>
#include <array>
#include <numeric>

namespace veldraw::kernel {

/// Targets that follow each other and have the same neighbours.
struct LocalKriging::Group
{
    std::size_t firstTarget;
    std::size_t lastTarget;
    std::size_t begin; ///< of the first target's neighbours
    std::size_t count; ///< of neighbours
};

LocalKriging::LocalKriging(NeighborSearch const& search, KrigingModel const& model, std::size_t axes,
                           Progress const& progress)
    : m_search(search)
    , m_model(model)
    , m_axes(axes)
    , m_progress(progress)
    , m_small(model, axes)
{
}

LocalKriging::~LocalKriging() = default;

std::int64_t LocalKriging::weigh(double const* targets, Neighborhoods const& neighborhoods,
                                 std::vector<double>& weights)
{
    m_targets = targets;
    m_neighborhoods = &neighborhoods;
    m_weights = &weights;
    m_lowered = 0;
    weights.assign(neighborhoods.neighbors.size(), 0.0);
    findGroups(neighborhoods);
    std::map<std::size_t, std::vector<Group const*>> groupsBySize;
    for (Group const& group : m_groups) {
        bool const isSmall =
            group.count <= SmallKriging::mostPoints && group.count >= driftTermCount(m_model.drift, m_axes);
        if (!isSmall) {
            solveAlone(group);
            continue;
        }
        std::vector<Group const*>& waiting = groupsBySize[group.count];
        waiting.push_back(&group);
        if (waiting.size() == SmallKriging::lanes) {
            solveTogether(waiting);
            waiting.clear();
        }
    }
    for (auto const& [count, waiting] : groupsBySize) {
        if (!waiting.empty()) {
            solveTogether(waiting);
        }
    }
    return m_lowered;
}

void LocalKriging::findGroups(Neighborhoods const& neighborhoods)
{
    m_order.resize(neighborhoods.neighbors.size());
    std::iota(m_order.begin(), m_order.end(), std::size_t{0});
    m_groups.clear();
    std::uint64_t lastSum = 0;
    for (std::size_t target = 0; target < neighborhoods.targetCount(); ++target) {
        std::size_t const begin = neighborhoods.begins[target];
        std::size_t const count = neighborhoods.begins[target + 1] - begin;
        std::uint64_t sum = 0; // equal for equal sets, and only seldom else
        for (std::size_t at = begin; at < begin + count; ++at) {
            std::uint64_t const place = neighborhoods.neighbors[at].place;
            sum += (place + 1) * (place + 0x9e3779b97f4a7c15U);
        }
        bool const isLikeLast = !m_groups.empty() && m_groups.back().count == count && sum == lastSum &&
                                matchOrder(m_groups.back().begin, begin, count);
        if (isLikeLast) {
            m_groups.back().lastTarget = target;
        } else if (count > 0) {
            m_groups.push_back({target, target, begin, count});
        }
        lastSum = sum;
    }
}

/// Brings the neighbours of a target in the order of those of the first one of a group. @return whether they are the same ones; the
/// order is left as it is if not
bool LocalKriging::matchOrder(std::size_t groupBegin, std::size_t begin, std::size_t count)
{
    std::vector<Neighbor> const& neighbors = m_neighborhoods->neighbors;
    for (std::size_t at = 0; at < count; ++at) {
        std::uint32_t const wanted = neighbors[groupBegin + at].place;
        std::size_t found = begin;
        while (found < begin + count && neighbors[found].place != wanted) {
            ++found;
        }
        if (found == begin + count) { // other points with the same sum
            std::iota(m_order.begin() + static_cast<std::ptrdiff_t>(begin),
                      m_order.begin() + static_cast<std::ptrdiff_t>(begin + at), begin);
            return false;
        }
        m_order[begin + at] = found;
    }
    return true;
}

std::vector<double> LocalKriging::placesOf(Group const& group) const
{
    std::vector<double> places(group.count * m_axes);
    m_search.read(&m_neighborhoods->neighbors[group.begin], group.count, places.data());
    return places;
}

/// @param weights of a target, in the order of the neighbours of its group's first target
void LocalKriging::store(std::size_t target, std::size_t count, double const* weights)
{
    std::size_t const* const order = &m_order[m_neighborhoods->begins[target]];
    for (std::size_t point = 0; point < count; ++point) {
        (*m_weights)[order[point]] = weights[point];
    }
}

/// @param groups at most as many as there are lanes, of equally many points; what is missing repeats the first one
void LocalKriging::solveTogether(std::vector<Group const*> const& groups)
{
    std::size_t const count = groups.front()->count;
    m_progress.check();
    m_small.setPointCount(count);
    std::size_t rounds = 0;
    std::array<double, 3 * SmallKriging::mostPoints> places;
    std::array<double, SmallKriging::mostPoints> weights;
    for (std::size_t lane = 0; lane < SmallKriging::lanes; ++lane) {
        Group const& group = *groups[lane < groups.size() ? lane : 0];
        m_search.read(&m_neighborhoods->neighbors[group.begin], count, places.data());
        m_small.setPoints(lane, places.data());
        rounds = std::max(rounds, group.lastTarget - group.firstTarget + 1);
    }
    unsigned const singular = m_small.factorize();
    for (std::size_t round = 0; round < rounds; ++round) {
        for (std::size_t lane = 0; lane < SmallKriging::lanes; ++lane) {
            Group const& group = *groups[lane < groups.size() ? lane : 0];
            m_small.setTarget(lane, target(std::min(group.firstTarget + round, group.lastTarget)));
        }
        m_small.solve();
        for (std::size_t lane = 0; lane < groups.size(); ++lane) {
            std::size_t const number = groups[lane]->firstTarget + round;
            bool const isWanted = number <= groups[lane]->lastTarget && (singular >> lane & 1U) == 0;
            if (isWanted) {
                m_small.readWeights(lane, weights.data());
                store(number, count, weights.data());
            }
        }
    }
    for (std::size_t lane = 0; lane < groups.size(); ++lane) {
        if ((singular >> lane & 1U) != 0) {
            solveAlone(*groups[lane]);
        }
    }
}

void LocalKriging::solveAlone(Group const& group)
{
    CarefulKriging const kriging(m_model, placesOf(group), m_axes, m_progress);
    std::vector<double> weights;
    for (std::size_t number = group.firstTarget; number <= group.lastTarget; ++number) {
        m_progress.check();
        kriging.weigh(target(number), weights, m_progress);
        store(number, group.count, weights.data());
        m_lowered += kriging.drift() != m_model.drift ? 1 : 0;
    }
}

} // namespace veldraw::kernel

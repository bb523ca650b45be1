#pragma once

#include "kernel/compute/KrigingModel.h"
#include "kernel/compute/NeighborSearch.h"
#include "kernel/compute/SmallKriging.h"

#include <map>
#include <vector>

namespace veldraw::kernel {

/// Kriging of targets from their neighbours. Targets that follow each other and have the same neighbours share one factorization.
/// An object is for one thread.
class LocalKriging
{
public:
    LocalKriging(NeighborSearch const& search, KrigingModel const& model, std::size_t axes, Progress const& progress);
    ~LocalKriging();

    /// Computes the weights of the neighbours of targets, in their order; those of each target add up to 1.
    /// @param targets their coordinates, one target after the other
    /// @throws Interrupted
    /// @return number of targets whose neighbours do not tell of the whole drift, so that a lower one was taken
    std::int64_t weigh(double const* targets, Neighborhoods const& neighborhoods, std::vector<double>& weights);

    LocalKriging(LocalKriging const&) = delete;
    LocalKriging& operator=(LocalKriging const&) = delete;

private:
    struct Group;

    void findGroups(Neighborhoods const& neighborhoods);
    bool matchOrder(std::size_t groupBegin, std::size_t begin, std::size_t count);
    void solveTogether(std::vector<Group const*> const& groups);
    void solveAlone(Group const& group);
    std::vector<double> placesOf(Group const& group) const;
    double const* target(std::size_t number) const { return m_targets + number * m_axes; }
    void store(std::size_t target, std::size_t count, double const* weights);

    NeighborSearch const& m_search;
    KrigingModel m_model;
    std::size_t m_axes;
    Progress const& m_progress;
    SmallKriging m_small;
    double const* m_targets = nullptr;
    Neighborhoods const* m_neighborhoods = nullptr;
    std::vector<double>* m_weights = nullptr;
    std::vector<Group> m_groups;
    std::vector<std::size_t> m_order; ///< of each target's neighbours: that of its group's first target
    std::int64_t m_lowered = 0;
};

} // namespace veldraw::kernel

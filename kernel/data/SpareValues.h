#pragma once

#include "kernel/data/DataSet.h"
#include "kernel/events/StateChangeEvent.h"

#include <functional>
#include <map>
#include <set>
#include <vector>

namespace veldraw::kernel {

/// Loaded values that go, and what is to be told of it. Taken down first, which needs memory; let go of later, which frees some.
class DeferredUnload
{
public:
    /// @param groups   not held, so that share counts stay true
    /// @param dataSets where they stand
    DeferredUnload(std::set<ShareGroup*> groups, std::vector<std::shared_ptr<DataSet>> const& dataSets);

    void commit() const noexcept;

    /// What is to be told after commit(): one event a data set.
    std::vector<StateChangeEvent> const& events() const { return m_events; }

private:
    std::set<ShareGroup*> m_groups;
    std::vector<StateChangeEvent> m_events;
};

/// Loaded values that may be let go of when memory asks for it: a loader can bring them again, since nobody has altered them, and
/// nobody needs them now. Those on one piece of memory, as the components of an array are, go together or not at all.
class SpareValues
{
public:
    using Predicate = std::function<bool(ShareGroup const&)>;

    /// Looks through a data set. What is wanted in any of its zones is not spare.
    /// @param shown    one-based numbers of variables that frames show; their values stay in all zones
    /// @param isNeeded whether an operation needs the values of a group
    void add(std::shared_ptr<DataSet> dataSet, NumberSet const& shown, Predicate const& isNeeded);

    /// Memory of all loaded values that could be loaded again, be they spare or not.
    double loadedBytes() const;

    /// Memory of the spare ones.
    double bytes() const;

    /// Those that have not been used for the longest time: as many as have @p bytes, or all.
    DeferredUnload leastRecentlyUsed(double bytes) const;

private:
    /// What stands on one piece of memory.
    struct Piece
    {
        std::set<ShareGroup*> groups;
        std::int64_t lastUse = 0;
        bool isNeeded = false;

        double bytes() const;
    };

    std::map<void const*, Piece> m_pieces; // by their memory
    std::vector<std::shared_ptr<DataSet>> m_dataSets;
};

} // namespace veldraw::kernel

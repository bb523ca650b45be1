#pragma once

#include "kernel/data/DataSet.h"
#include "kernel/events/StateChangeEvent.h"

#include <functional>
#include <map>
#include <set>
#include <vector>

namespace veldraw::kernel {

/// A set of values that are to be unloaded. The constructor allocates what is needed for it, so that commit() cannot fail.
class DeferredUnload
{
public:
    /// @param groups   whose values are unloaded; not held, so that share counts stay true
    /// @param dataSets the data sets with fields on the groups
    DeferredUnload(std::set<ShareGroup*> groups, std::vector<std::shared_ptr<DataSet>> const& dataSets);

    void commit() const noexcept;

    /// The events to be sent after commit(), one for each data set.
    std::vector<StateChangeEvent> const& events() const { return m_events; }

private:
    std::set<ShareGroup*> m_groups;
    std::vector<StateChangeEvent> m_events;
};

/// Finds loaded values that can be unloaded when memory is short: a loader can still bring them again, nobody has altered
/// them, and nobody needs them now. Values in the same piece of memory, such as the components of an array, are unloaded together
/// or not at all.
class SpareValues
{
public:
    using Predicate = std::function<bool(ShareGroup const&)>;
    using Shown = std::function<bool(int zone, int variable)>;

    /// Adds the values of a data set. Variables that are wanted in a zone are not spare there.
    /// @param isShown  whether frames show a variable in a zone, by their one-based numbers; called before add() returns
    /// @param isNeeded whether somebody else needs the values of a group; called before add() returns
    void add(std::shared_ptr<DataSet> dataSet, Shown const& isShown, Predicate const& isNeeded);

    /// Bytes of all loaded values that could be loaded again, spare or not.
    double loadedBytes() const;

    /// Bytes of the spare values.
    double bytes() const;

    /// The spare values that have not been used for the longest time, just enough to free @p bytes; all when that is not
    /// enough.
    DeferredUnload leastRecentlyUsed(double bytes) const;

private:
    /// The groups with values in one piece of memory.
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

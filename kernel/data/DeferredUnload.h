#pragma once

#include "kernel/data/DataSet.h"
#include "kernel/events/StateChangeEvent.h"

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

} // namespace veldraw::kernel

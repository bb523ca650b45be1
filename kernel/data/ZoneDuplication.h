#pragma once

#include "kernel/data/DataSet.h"
#include "kernel/events/EventHub.h"
#include "kernel/undo/Change.h"

namespace veldraw::kernel {

/// Appends copies of zones to a data set, and takes them away again. No value is copied or looked at.
///
/// A copy that stands in the data set is on the share groups of its source. While it is out, it is on none, so that share
/// counts always tell the fields that there are. The step runs with its source as it was at first, so the fields that the
/// copy needs when it comes back are those of its source.
class ZoneDuplication : public Change
{
public:
    /// @param sources one-based numbers that exist
    /// @throws std::bad_alloc
    ZoneDuplication(EventHub& hub, std::shared_ptr<DataSet> dataSet, NumberSet const& sources);

    void apply() noexcept override;
    void revert() noexcept override;

private:
    struct Copy
    {
        std::shared_ptr<Zone> zone;
        std::shared_ptr<Zone const> source;
    };

    EventHub& m_hub;
    std::shared_ptr<DataSet> m_dataSet;
    std::vector<Copy> m_copies; // in the order of their numbers
    StateChangeEvent m_added;
    StateChangeEvent m_deleted;
};

} // namespace veldraw::kernel

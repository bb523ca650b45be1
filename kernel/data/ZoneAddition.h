#pragma once

#include "kernel/data/DataSet.h"
#include "kernel/data/Field.h"
#include "kernel/events/EventHub.h"
#include "kernel/undo/Change.h"

#include <vector>

namespace veldraw::kernel {

/// Appends copies of zones to a data set, and takes them away again. No value is copied or looked at.
///
/// A copy that stands in the data set is on the share groups of its source, but for the fields that are its own. While it
/// is out, it is on none, so that share counts always tell the fields that there are. The step runs with its source as it
/// was at first, so the fields that the copy needs when it comes back are those of its source. The storage of its own
/// fields is held by the step while it is out, and by the zone alone while it is in.
class ZoneAddition : public Change
{
public:
    struct Copy
    {
        /// A copy of everything but the fields, with an identifier of its own, enabled. @throws std::bad_alloc
        explicit Copy(std::shared_ptr<Zone const> sourceZone, std::vector<NewField> ownFields = {});

        std::shared_ptr<Zone> zone;
        std::shared_ptr<Zone const> source;
        std::vector<NewField> fields; ///< in the place of those of the source
    };

    /// @param copies in the order in which they are to stand
    /// @throws std::bad_alloc
    ZoneAddition(EventHub& hub, std::shared_ptr<DataSet> dataSet, std::vector<Copy> copies);

    void apply() noexcept override;
    void revert() noexcept override;
    HeldMemory held() const noexcept override;

private:
    EventHub& m_hub;
    std::shared_ptr<DataSet> m_dataSet;
    std::vector<Copy> m_copies;
    StateChangeEvent m_added;
    StateChangeEvent m_deleted;
    std::int64_t m_notes;      // memory of the lists
    HeldMemory m_heldWhileOut; // the copies themselves, and the values of their own fields
    bool m_areOut = true;
};

} // namespace veldraw::kernel

#pragma once

#include "kernel/data/DataSet.h"
#include "kernel/data/Field.h"
#include "kernel/events/EventHub.h"
#include "kernel/undo/Change.h"

#include <vector>

namespace veldraw::kernel {

/// Appends copies of zones to a data set, and takes them away again. No value is copied or looked at. A new zone is a copy of one
/// that is in no data set and has passive fields only, with fields of its own for all variables.
///
/// A copy in the data set is on the share groups of its source, except for the fields that it has of its own. While the copy is
/// out of the data set it is on no group, so that share counts stay true. Whenever the step runs, its source is in the state in
/// which it was at first, so the copy gets its fields from the source again. The storage of its own fields is held by the step
/// while the copy is out, and by the zone alone while the copy is in the data set.
class ZoneAddition : public Change
{
public:
    struct Copy
    {
        /// A copy of everything but the fields, with an identifier of its own, enabled. @throws std::bad_alloc
        explicit Copy(std::shared_ptr<Zone const> sourceZone, std::vector<NewField> ownFields = {});

        std::shared_ptr<Zone> zone;
        std::shared_ptr<Zone const> source;
        std::vector<NewField> fields; ///< replace those of the source
        std::int64_t ownBytes = 0;    ///< of what else the source shares with nobody, such as the cells of a new zone
    };

    /// @param copies in the order in which they are appended
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

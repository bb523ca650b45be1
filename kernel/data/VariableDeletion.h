#pragma once

#include "kernel/data/DataSet.h"
#include "kernel/events/EventHub.h"
#include "kernel/storage/RetiredStorage.h"
#include "kernel/undo/Change.h"

#include <map>

namespace veldraw::kernel {

/// Removes variables from a data set, in all zones; reverting it puts them back in their old places. No value is read or
/// copied.
///
/// While the variables are out, the change holds their storage.
class VariableDeletion : public Change
{
public:
    /// @param variables one-based numbers that exist
    /// @throws std::bad_alloc
    VariableDeletion(EventHub& hub, std::shared_ptr<DataSet> dataSet, NumberSet const& variables);
    ~VariableDeletion() override;

    void apply() noexcept override;
    void revert() noexcept override;
    HeldMemory held() const noexcept override;

private:
    struct RemovedField;
    struct ZonePart;

    void collectZone(std::shared_ptr<Zone> const& zone);
    std::size_t storageOf(std::shared_ptr<ShareGroup> const& group);
    void prepareStorages();
    std::int64_t bytesOfNotes() const;
    void takeFieldsOut(ZonePart& part) noexcept;
    void putFieldsBack(ZonePart& part) noexcept;
    void takeVariablesOut() noexcept;
    void putVariablesBack() noexcept;

    EventHub& m_hub;
    std::shared_ptr<DataSet> m_dataSet;
    std::vector<std::size_t> m_positions; // zero-based, ascending
    std::vector<std::shared_ptr<Variable>> m_removed;
    std::vector<std::shared_ptr<Variable>> m_spareVariables; // room for the other state of the list
    std::vector<RetiredStorage> m_storages;
    std::map<ShareGroup const*, std::size_t> m_storageNumbers; // while the change is being prepared
    std::vector<ZonePart> m_zones;
    std::int64_t m_notes = 0; // memory of the lists
    StateChangeEvent m_deleted;
    StateChangeEvent m_added;
};

} // namespace veldraw::kernel

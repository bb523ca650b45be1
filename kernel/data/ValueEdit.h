#pragma once

#include "kernel/data/FieldReplacement.h"
#include "kernel/data/Zone.h"
#include "kernel/data/ZonesAndVariables.h"
#include "kernel/events/EventHub.h"
#include "kernel/undo/Change.h"

namespace veldraw::kernel {

/// The place of one value: a field of a zone, and where in its buffer.
struct ValuePlace
{
    std::shared_ptr<Zone> zone;
    std::size_t position; ///< zero-based among the zone's fields; the field is not passive
    std::int64_t index;   ///< zero-based

    ShareGroup& group() const { return *zone->fields[position].group(); }

    /// Values of the field that count in its range.
    CountedValues countedValues() const { return zone->countedValues(zone->fields[position].location()); }
};

/// Stores one value in place, and the old bits again. No array is held: each way finds the group by the field, which stands
/// where it stood when the step was made. A range that was known comes back with the bits, so that it is not computed again.
class ValueEdit : public Change
{
public:
    /// @param copy of the values, to be put in the place of a buffer that is held by others; else null
    /// @param event sent after each way
    ValueEdit(EventHub& hub, ValuePlace place, std::uint64_t bits, std::shared_ptr<Buffer> copy,
              StateChangeEvent event);

    void apply() noexcept override;
    void revert() noexcept override;
    HeldMemory held() const noexcept override { return {0, bytesOfLists(m_event)}; }

private:
    void exchange() noexcept;

    EventHub& m_hub;
    ValuePlace m_place;
    std::uint64_t m_otherBits;
    KnownRange m_otherRange; ///< what was known with the other bits in place
    std::shared_ptr<Buffer> m_copy;
    StateChangeEvent m_event;
};

/// Stores one value in a copy of the values that its field shares with others, for this field alone; and puts the field
/// back among them.
class BranchEdit : public Change
{
public:
    /// @param copy of the values of the shared storage
    /// @param sharing fields that share it now, told after each way
    /// @throws std::bad_alloc
    BranchEdit(EventHub& hub, ValuePlace const& place, std::uint64_t bits, std::shared_ptr<Buffer> copy,
               ZonesAndVariables sharing, StateChangeEvent event);

    void apply() noexcept override;
    void revert() noexcept override;
    HeldMemory held() const noexcept override;

private:
    EventHub& m_hub;
    FieldReplacement m_replacement;
    StateChangeEvent m_sharing;
};

} // namespace veldraw::kernel

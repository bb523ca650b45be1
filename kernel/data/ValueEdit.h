#pragma once

#include "kernel/data/FieldReplacement.h"
#include "kernel/data/Zone.h"
#include "kernel/data/ZonesAndVariables.h"
#include "kernel/events/EventHub.h"
#include "kernel/undo/Change.h"

namespace veldraw::kernel {

/// The place of one value: a field of a zone, and an index in its buffer.
struct ValuePlace
{
    std::shared_ptr<Zone> zone;
    std::size_t position; ///< zero-based among the zone's fields; the field is not passive
    std::int64_t index;   ///< zero-based

    ShareGroup& group() const { return *zone->fields[position].group(); }

    /// Values of the field that count in its range.
    CountedValues countedValues() const { return zone->countedValues(zone->fields[position].location()); }
};

/// Stores one value in place; reverting it stores the old bits again. The change holds no array: it finds the group by the
/// place of the field, which is the same whenever the step is undone or redone. A range that was known is restored with the
/// bits, so that it need not be computed again.
class ValueEdit : public Change
{
public:
    /// @param copy of all values, which replaces a buffer that others hold; null when nobody else holds it
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
    KnownRange m_otherRange; ///< the range as it was known with m_otherBits
    std::shared_ptr<Buffer> m_copy;
    StateChangeEvent m_event;
};

/// Gives one of the fields that share values some of its own: a copy with one value changed, or all others. Reverting it puts the field back
/// on the shared group.
class BranchEdit : public Change
{
public:
    /// @param copy of the values of the shared storage
    /// @param sharing all fields that share the storage now; an event tells of them after each way
    /// @throws std::bad_alloc
    BranchEdit(EventHub& hub, ValuePlace const& place, std::uint64_t bits, std::shared_ptr<Buffer> copy,
               ZonesAndVariables sharing, StateChangeEvent event);

    /// @param parts with the field that gets values of its own. @throws std::bad_alloc
    BranchEdit(EventHub& hub, std::vector<FieldReplacement::ZonePart> parts, ZonesAndVariables sharing,
               StateChangeEvent event);

    void apply() noexcept override;
    void revert() noexcept override;
    HeldMemory held() const noexcept override;

private:
    EventHub& m_hub;
    FieldReplacement m_replacement;
    StateChangeEvent m_sharing;
};

} // namespace veldraw::kernel

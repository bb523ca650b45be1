#pragma once

#include "kernel/data/DataSet.h"
#include "kernel/data/Field.h"
#include "kernel/events/EventHub.h"
#include "kernel/storage/RetiredStorage.h"
#include "kernel/undo/Change.h"

#include <map>

namespace veldraw::kernel {

/// Replaces fields of zones; reverting it puts the old fields back. No value is read or copied. The step holds the storage
/// of the fields that are out of the zones.
class FieldReplacement : public Change
{
public:
    struct ZonePart
    {
        std::shared_ptr<Zone> zone;
        std::vector<NewField> fields;
    };

    /// @param parts the new fields, on groups that no other fields are on but those that come and go with them, in another part of the
    /// same step; the step counts the values of such a group once
    /// @param event sent after each way
    /// @throws std::bad_alloc
    FieldReplacement(EventHub& hub, std::vector<ZonePart> parts, StateChangeEvent event);

    void apply() noexcept override;
    void revert() noexcept override;
    HeldMemory held() const noexcept override;

private:
    using Numbers = std::map<ShareGroup const*, std::size_t>; // of the storage of each group

    /// The old or the new fields. While they are out of the zones, their storage is kept beside them.
    struct Side
    {
        std::vector<Field> fields; // passive, with type and location
        std::vector<std::size_t> storageNumbers;
        std::vector<RetiredStorage> storages;

        void add(Field const& field, bool isNew, Numbers& numbers);
        HeldMemory held() const noexcept;
    };

    struct Place
    {
        std::shared_ptr<Zone> zone;
        std::size_t position;
    };

    void exchange(Side& leaving, Side& entering) noexcept;

    EventHub& m_hub;
    std::vector<Place> m_places;
    Side m_old;
    Side m_new;
    StateChangeEvent m_event;
};

} // namespace veldraw::kernel

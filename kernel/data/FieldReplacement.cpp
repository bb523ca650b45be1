#include "kernel/data/FieldReplacement.h"

namespace veldraw::kernel {

FieldReplacement::FieldReplacement(EventHub& hub, std::vector<ZonePart> parts, StateChangeEvent event)
    : m_hub(hub)
    , m_event(std::move(event))
{
    Numbers oldNumbers;
    Numbers newNumbers;
    for (ZonePart const& part : parts) {
        for (NewField const& replacement : part.fields) {
            m_places.push_back({part.zone, replacement.position});
            m_old.add(part.zone->fields[replacement.position], false, oldNumbers);
            m_new.add(replacement.field, true, newNumbers);
        }
    }
    for (RetiredStorage& storage : m_old.storages) {
        storage.prepare();
    }
}

void FieldReplacement::Side::add(Field const& field, bool isNew, Numbers& numbers)
{
    fields.emplace_back(field.type(), field.location());
    if (field.isPassive()) {
        storageNumbers.push_back(RetiredStorage::none);
        return;
    }
    auto const [place, isFirst] = numbers.try_emplace(field.group().get(), storages.size());
    if (isFirst) {
        storages.push_back(isNew ? RetiredStorage::ofNewGroup(field.group()) : RetiredStorage(field.group()));
    }
    storages[place->second].addField();
    storageNumbers.push_back(place->second);
}

HeldMemory FieldReplacement::Side::held() const noexcept
{
    HeldMemory sum;
    for (RetiredStorage const& storage : storages) {
        sum.values += storage.heldBytes();
    }
    std::size_t const notes = storages.size() * sizeof(RetiredStorage) + fields.size() * sizeof(Field) +
                              storageNumbers.size() * sizeof(std::size_t);
    sum.notes = static_cast<std::int64_t>(notes);
    return sum;
}

HeldMemory FieldReplacement::held() const noexcept
{
    HeldMemory sum = m_old.held();
    sum += m_new.held();
    sum.notes += static_cast<std::int64_t>(m_places.size() * sizeof(Place)) + bytesOfLists(m_event);
    return sum;
}

void FieldReplacement::apply() noexcept
{
    exchange(m_old, m_new);
}

void FieldReplacement::revert() noexcept
{
    exchange(m_new, m_old);
}

void FieldReplacement::exchange(Side& leaving, Side& entering) noexcept
{
    for (std::size_t at = 0; at < m_places.size(); ++at) {
        Field& field = m_places[at].zone->fields[m_places[at].position];
        std::size_t const leavingStorage = leaving.storageNumbers[at];
        if (leavingStorage != RetiredStorage::none) {
            leaving.storages[leavingStorage].retire(field.group());
        }
        std::size_t const enteringStorage = entering.storageNumbers[at];
        field = enteringStorage == RetiredStorage::none
                    ? entering.fields[at]
                    : Field(entering.storages[enteringStorage].revive(), entering.fields[at].location());
    }
    for (RetiredStorage& storage : entering.storages) {
        storage.release();
    }
    m_hub.emitEvent(m_event);
}

} // namespace veldraw::kernel

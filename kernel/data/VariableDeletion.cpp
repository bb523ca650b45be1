#include "kernel/data/VariableDeletion.h"

namespace veldraw::kernel {

struct VariableDeletion::RemovedField
{
    Field field; // passive, with type and location; the storage stands beside it
    std::size_t storage;
};

struct VariableDeletion::ZonePart
{
    std::shared_ptr<Zone> zone;
    std::vector<RemovedField> removed;
    std::vector<Field> spare; // room for the other state of the zone's fields
};

namespace {

/// Moves @p list to @p rest without the elements at @p positions, and tells @p taken each of those.
template <typename Element, typename Taken>
void splitList(std::vector<Element>& list, std::vector<std::size_t> const& positions, std::vector<Element>& rest,
               Taken const& taken) noexcept
{
    std::size_t next = 0;
    for (std::size_t at = 0; at < list.size(); ++at) {
        if (next < positions.size() && positions[next] == at) {
            taken(next++, list[at]);
            continue;
        }
        rest.push_back(std::move(list[at]));
    }
    list.swap(rest);
    rest.clear();
}

/// The reverse: elements that @p given makes stand at @p positions again.
template <typename Element, typename Given>
void mergeList(std::vector<Element>& list, std::vector<std::size_t> const& positions, std::vector<Element>& whole,
               Given const& given) noexcept
{
    std::size_t next = 0;
    std::size_t const size = list.size() + positions.size();
    for (std::size_t at = 0; at < size; ++at) {
        if (next < positions.size() && positions[next] == at) {
            whole.push_back(given(next++));
            continue;
        }
        whole.push_back(std::move(list[at - next]));
    }
    list.swap(whole);
    whole.clear();
}

} // namespace

VariableDeletion::VariableDeletion(EventHub& hub, std::shared_ptr<DataSet> dataSet, NumberSet const& variables)
    : m_hub(hub)
    , m_dataSet(std::move(dataSet))
{
    for (int const number : variables) {
        m_positions.push_back(static_cast<std::size_t>(number - 1));
        m_removed.push_back(m_dataSet->variable(number));
    }
    // apply() and revert() exchange this list and the data set's, so that both need room for all variables.
    m_spareVariables.reserve(m_dataSet->variables().size());
    m_zones.reserve(m_dataSet->zones().size());
    for (auto const& zone : m_dataSet->zones()) {
        collectZone(zone);
    }
    prepareStorages();
    m_deleted = {StateChange_VariablesDeleted, {}, variables, {}, 0};
    m_added = {StateChange_VariablesAdded, {}, variables, {}, 0};
    m_notes = bytesOfNotes();
}

VariableDeletion::~VariableDeletion() = default;

void VariableDeletion::collectZone(std::shared_ptr<Zone> const& zone)
{
    ZonePart part{zone, {}, {}};
    part.removed.reserve(m_positions.size());
    part.spare.reserve(zone->fields.size());
    for (std::size_t const position : m_positions) {
        Field const& field = zone->fields[position];
        std::size_t const storage = field.isPassive() ? RetiredStorage::none : storageOf(field.group());
        part.removed.push_back({Field(field.type(), field.location()), storage});
    }
    m_zones.push_back(std::move(part));
}

std::size_t VariableDeletion::storageOf(std::shared_ptr<ShareGroup> const& group)
{
    auto const [place, isNew] = m_storageNumbers.try_emplace(group.get(), m_storages.size());
    if (isNew) {
        m_storages.emplace_back(group);
    }
    m_storages[place->second].addField();
    return place->second;
}

void VariableDeletion::prepareStorages()
{
    m_storageNumbers.clear();
    for (RetiredStorage& storage : m_storages) {
        storage.prepare();
    }
}

std::int64_t VariableDeletion::bytesOfNotes() const
{
    std::size_t bytes = m_storages.size() * sizeof(RetiredStorage) + m_spareVariables.capacity() * sizeof(m_removed[0]);
    for (ZonePart const& part : m_zones) {
        bytes += sizeof part + part.removed.size() * sizeof(RemovedField) + part.spare.capacity() * sizeof(Field);
    }
    return static_cast<std::int64_t>(bytes) + bytesOfLists(m_deleted) + bytesOfLists(m_added);
}

HeldMemory VariableDeletion::held() const noexcept
{
    HeldMemory held{0, m_notes};
    for (RetiredStorage const& storage : m_storages) {
        held.values += storage.heldBytes();
    }
    return held;
}

void VariableDeletion::apply() noexcept
{
    for (ZonePart& part : m_zones) {
        takeFieldsOut(part);
    }
    takeVariablesOut();
    m_hub.emitEvent(m_deleted);
}

void VariableDeletion::revert() noexcept
{
    for (ZonePart& part : m_zones) {
        putFieldsBack(part);
    }
    putVariablesBack();
    for (RetiredStorage& storage : m_storages) {
        storage.release();
    }
    m_hub.emitEvent(m_added);
}

void VariableDeletion::takeFieldsOut(ZonePart& part) noexcept
{
    splitList(part.zone->fields, m_positions, part.spare, [&](std::size_t which, Field& field) {
        RemovedField const& removed = part.removed[which];
        if (removed.storage != RetiredStorage::none) {
            m_storages[removed.storage].retire(field.group());
        }
    });
}

void VariableDeletion::putFieldsBack(ZonePart& part) noexcept
{
    mergeList(part.zone->fields, m_positions, part.spare, [&](std::size_t which) {
        RemovedField const& removed = part.removed[which];
        if (removed.storage == RetiredStorage::none) {
            return removed.field;
        }
        return Field(m_storages[removed.storage].revive(), removed.field.location());
    });
}

void VariableDeletion::takeVariablesOut() noexcept
{
    splitList(m_dataSet->variables(), m_positions, m_spareVariables, [](std::size_t, std::shared_ptr<Variable>&) {});
}

void VariableDeletion::putVariablesBack() noexcept
{
    mergeList(m_dataSet->variables(), m_positions, m_spareVariables,
              [&](std::size_t which) { return m_removed[which]; });
}

} // namespace veldraw::kernel

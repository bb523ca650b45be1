#include "kernel/data/VariableDeletion.h"

namespace veldraw::kernel {

/// The storage of removed fields that shared one group.
struct VariableDeletion::Storage
{
    std::weak_ptr<ShareGroup> group;
    std::shared_ptr<ShareGroup> reserve; // for when the group has gone; no field is on it while the variables are out
    long removedFields = 0;

    std::shared_ptr<ShareGroup> groupForFields() noexcept
    {
        std::shared_ptr<ShareGroup> living = group.lock();
        return living ? living : reserve;
    }
};

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

constexpr std::size_t noStorage = static_cast<std::size_t>(-1);

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
    // Both lists change places at each way, so each needs room for all.
    m_spareVariables.reserve(m_dataSet->variables().size());
    m_zones.reserve(m_dataSet->zones().size());
    for (auto const& zone : m_dataSet->zones()) {
        collectZone(zone);
    }
    countFieldsOutside();
    m_deleted = {StateChange_VariablesDeleted, {}, variables, {}, 0};
    m_added = {StateChange_VariablesAdded, {}, variables, {}, 0};
}

VariableDeletion::~VariableDeletion() = default;

void VariableDeletion::collectZone(std::shared_ptr<Zone> const& zone)
{
    ZonePart part{zone, {}, {}};
    part.removed.reserve(m_positions.size());
    part.spare.reserve(zone->fields.size());
    for (std::size_t const position : m_positions) {
        Field const& field = zone->fields[position];
        std::size_t const storage = field.isPassive() ? noStorage : storageOf(field.group());
        part.removed.push_back({Field(field.type(), field.location()), storage});
    }
    m_zones.push_back(std::move(part));
}

std::size_t VariableDeletion::storageOf(std::shared_ptr<ShareGroup> const& group)
{
    auto const [place, isNew] = m_storageNumbers.try_emplace(group.get(), m_storages.size());
    if (isNew) {
        m_storages.push_back({group, nullptr, 0});
    }
    ++m_storages[place->second].removedFields;
    return place->second;
}

void VariableDeletion::countFieldsOutside()
{
    m_storageNumbers.clear();
    for (Storage& storage : m_storages) {
        std::shared_ptr<ShareGroup> const group = storage.group.lock();
        if (group.use_count() - 1 > storage.removedFields) {
            storage.reserve = group->branch();
            continue;
        }
        m_bytes += group->buffer()->bytes(); // nobody else will hold it
    }
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
    for (Storage& storage : m_storages) {
        if (storage.group.lock() == storage.reserve) {
            storage.reserve.reset(); // fields are on it again
        }
    }
    m_hub.emitEvent(m_added);
}

void VariableDeletion::takeFieldsOut(ZonePart& part) noexcept
{
    splitList(part.zone->fields, m_positions, part.spare, [&](std::size_t which, Field& field) {
        RemovedField const& removed = part.removed[which];
        if (removed.storage == noStorage) {
            return;
        }
        Storage& storage = m_storages[removed.storage];
        storage.group = field.group();
        if (!storage.reserve) {
            storage.reserve = field.group(); // only removed fields are on it
        }
    });
}

void VariableDeletion::putFieldsBack(ZonePart& part) noexcept
{
    mergeList(part.zone->fields, m_positions, part.spare, [&](std::size_t which) {
        RemovedField const& removed = part.removed[which];
        if (removed.storage == noStorage) {
            return removed.field;
        }
        Storage& storage = m_storages[removed.storage];
        std::shared_ptr<ShareGroup> group = storage.groupForFields();
        storage.group = group;
        return Field(std::move(group), removed.field.location());
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

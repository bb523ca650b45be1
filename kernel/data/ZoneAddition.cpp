#include "kernel/data/ZoneAddition.h"

#include <algorithm>
#include <set>

namespace veldraw::kernel {

namespace {

/// A copy of everything but the fields, with room for these.
std::shared_ptr<Zone> copyWithoutFields(Zone const& source)
{
    auto copy = std::make_shared<Zone>(source);
    copy->id = nextUniqueId();
    copy->enabled = true;
    copy->fields.clear();
    return copy;
}

/// Makes room for @p more elements; growing in proportion keeps many small additions cheap.
template <typename Element>
void makeRoom(std::vector<Element>& list, std::size_t more)
{
    std::size_t const needed = list.size() + more;
    if (list.capacity() < needed) {
        list.reserve(std::max(needed, 2 * list.capacity()));
    }
}

/// Memory of the copies while they are in no data set; values that several of them share are counted once.
HeldMemory memoryOf(std::vector<ZoneAddition::Copy> const& copies)
{
    HeldMemory sum;
    std::set<ShareGroup const*> seen;
    for (ZoneAddition::Copy const& copy : copies) {
        std::size_t const fields = copy.source->fields.size() * sizeof(Field); // their room stays
        sum.notes += static_cast<std::int64_t>(sizeof(Zone) + fields);
        sum.values += copy.ownBytes;
        for (NewField const& own : copy.fields) {
            bool const isNew = !own.field.isPassive() && seen.insert(own.field.group().get()).second;
            sum.values += isNew ? own.field.group()->buffer()->bytes() : 0;
        }
    }
    return sum;
}

std::int64_t bytesOfLists(std::vector<ZoneAddition::Copy> const& copies)
{
    std::size_t bytes = 0;
    for (ZoneAddition::Copy const& copy : copies) {
        bytes += sizeof copy + copy.fields.size() * sizeof(NewField);
    }
    return static_cast<std::int64_t>(bytes);
}

} // namespace

ZoneAddition::Copy::Copy(std::shared_ptr<Zone const> sourceZone, std::vector<NewField> ownFields)
    : zone(copyWithoutFields(*sourceZone))
    , source(std::move(sourceZone))
    , fields(std::move(ownFields))
{
}

ZoneAddition::ZoneAddition(EventHub& hub, std::shared_ptr<DataSet> dataSet, std::vector<Copy> copies)
    : m_hub(hub)
    , m_dataSet(std::move(dataSet))
    , m_copies(std::move(copies))
{
    NumberSet numbers;
    for (std::size_t at = 1; at <= m_copies.size(); ++at) {
        numbers.insert(m_dataSet->zoneCount() + static_cast<int>(at));
    }
    makeRoom(m_dataSet->zones(), m_copies.size());
    m_added = {StateChange_ZonesAdded, numbers, {}, {}, 0};
    m_deleted = {StateChange_ZonesDeleted, std::move(numbers), {}, {}, 0};
    m_notes = bytesOfLists(m_copies) + kernel::bytesOfLists(m_added) + kernel::bytesOfLists(m_deleted);
    m_heldWhileOut = memoryOf(m_copies);
}

void ZoneAddition::apply() noexcept
{
    for (Copy& copy : m_copies) {
        copy.zone->fields = copy.source->fields; // within the reserved capacity
        if (copy.zone->isDeferred()) {           // the dimensions of the source may have been loaded since
            Zone const& now = *copy.source;
            copy.zone->setDimensions({now.i, now.j, now.k, now.connectivity, now.blanking});
        }
        for (NewField& own : copy.fields) {
            copy.zone->fields[own.position] = std::move(own.field);
        }
        m_dataSet->zones().push_back(copy.zone);
    }
    m_areOut = false;
    m_hub.emitEvent(m_added);
}

void ZoneAddition::revert() noexcept
{
    std::vector<std::shared_ptr<Zone>>& zones = m_dataSet->zones();
    zones.erase(zones.end() - static_cast<std::ptrdiff_t>(m_copies.size()), zones.end());
    for (Copy& copy : m_copies) {
        for (NewField& own : copy.fields) {
            own.field = std::move(copy.zone->fields[own.position]);
        }
        copy.zone->fields.clear();
    }
    m_areOut = true;
    m_hub.emitEvent(m_deleted);
}

HeldMemory ZoneAddition::held() const noexcept
{
    HeldMemory held{0, m_notes};
    if (m_areOut) {
        held += m_heldWhileOut;
    }
    return held;
}

} // namespace veldraw::kernel

#include "kernel/data/BranchEdit.h"

namespace veldraw::kernel {

namespace {

std::vector<FieldReplacement::ZonePart> editedField(ValuePlace const& place, std::uint64_t bits,
                                                    std::shared_ptr<Buffer> copy)
{
    std::shared_ptr<ShareGroup> const group = place.group().branch(std::move(copy));
    group->writeBits(place.index, bits, place.countedValues());
    Field field(group, place.zone->fields[place.position].location());
    return {{place.zone, {{place.position, std::move(field)}}}};
}

} // namespace

BranchEdit::BranchEdit(EventHub& hub, ValuePlace const& place, std::uint64_t bits, std::shared_ptr<Buffer> copy,
                       ZonesAndVariables sharing, StateChangeEvent event)
    : m_hub(hub)
    , m_replacement(hub, editedField(place, bits, std::move(copy)), std::move(event))
    , m_sharing{StateChange_SharingChanged, std::move(sharing.zones), std::move(sharing.variables), {}, 0}
{
}

void BranchEdit::apply() noexcept
{
    m_replacement.apply();
    m_hub.emitEvent(m_sharing);
}

void BranchEdit::revert() noexcept
{
    m_replacement.revert();
    m_hub.emitEvent(m_sharing);
}

HeldMemory BranchEdit::held() const noexcept
{
    HeldMemory sum = m_replacement.held();
    sum.notes += bytesOfLists(m_sharing);
    return sum;
}

} // namespace veldraw::kernel

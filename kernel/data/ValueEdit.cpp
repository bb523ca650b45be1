#include "kernel/data/ValueEdit.h"

#include "kernel/base/SystemMemory.h"

#include <exception>

namespace veldraw::kernel {

namespace {

/// Gives a group a copy of values that others hold, such as a picture that is made on another thread.
void detachFromHolders(ShareGroup& group) noexcept
{
    if (!group.isHeld()) {
        return;
    }
    try {
        requireMemory(static_cast<double>(group.buffer()->bytes()));
        std::shared_ptr<Buffer> copy = group.buffer()->clone();
        if (group.whatIsLost().empty()) { // else the loader is still wanted, which knows that
            group.replaceByCopy(std::move(copy));
        }
    } catch (std::exception const&) {
        // Without memory for a copy the holders see the other value, which is better than a step that cannot be undone.
    }
}

} // namespace

ValueEdit::ValueEdit(EventHub& hub, ValuePlace place, std::uint64_t bits, std::shared_ptr<Buffer> copy,
                     StateChangeEvent event)
    : m_hub(hub)
    , m_place(std::move(place))
    , m_otherBits(bits)
    , m_copy(std::move(copy))
    , m_event(std::move(event))
{
}

void ValueEdit::apply() noexcept
{
    if (m_copy) {
        m_place.group().replaceByCopy(std::move(m_copy));
    } else {
        detachFromHolders(m_place.group());
    }
    exchange();
}

void ValueEdit::revert() noexcept
{
    detachFromHolders(m_place.group());
    exchange();
}

void ValueEdit::exchange() noexcept
{
    ShareGroup& group = m_place.group();
    std::uint64_t const bits = group.buffer()->bits(m_place.index);
    KnownRange const range = group.knownRange();
    group.writeBits(m_place.index, m_otherBits, m_place.countedValues());
    if (m_otherRange.isKnown()) {
        group.restoreRange(m_otherRange); // all values are what they were then
    }
    m_otherBits = bits;
    m_otherRange = range;
    m_hub.emitEvent(m_event);
}

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
    : BranchEdit(hub, editedField(place, bits, std::move(copy)), std::move(sharing), std::move(event))
{
}

BranchEdit::BranchEdit(EventHub& hub, std::vector<FieldReplacement::ZonePart> parts, ZonesAndVariables sharing,
                       StateChangeEvent event)
    : m_hub(hub)
    , m_replacement(hub, std::move(parts), std::move(event))
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

#include "kernel/data/ValueEdit.h"

namespace veldraw::kernel {

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
    }
    exchange();
}

void ValueEdit::revert() noexcept
{
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

} // namespace veldraw::kernel

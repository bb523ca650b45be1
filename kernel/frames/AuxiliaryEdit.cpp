#include "kernel/frames/AuxiliaryEdit.h"

#include <utility>

namespace veldraw::kernel {

AuxiliaryEdit::AuxiliaryEdit(EventHub& hub, AuxiliaryOwner owner, AuxiliaryData data, StateChange_e kind)
    : m_hub(hub)
    , m_owner(std::move(owner))
    , m_other(std::move(data))
    , m_kind(kind)
{
}

void AuxiliaryEdit::revert() noexcept
{
    exchange(m_kind == StateChange_AuxDataAdded ? StateChange_AuxDataDeleted : m_kind);
}

void AuxiliaryEdit::exchange(StateChange_e kind) noexcept
{
    if (AuxiliaryData* const data = m_owner.data()) {
        std::swap(*data, m_other);
        m_hub.emitEvent({kind, {}, {}, {}, 0});
    }
}

HeldMemory AuxiliaryEdit::held() const noexcept
{
    std::size_t bytes = 0;
    for (int number = 1; number <= m_other.size(); ++number) {
        AuxiliaryData::Item const& item = m_other.item(number);
        bytes += sizeof item + item.name.size() + item.value.size();
    }
    return {0, static_cast<std::int64_t>(bytes)};
}

} // namespace veldraw::kernel

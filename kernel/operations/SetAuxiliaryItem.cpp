#include "kernel/operations/SetAuxiliaryItem.h"

#include "kernel/events/EventHub.h"
#include "kernel/undo/Change.h"

#include <utility>

namespace veldraw::kernel {

namespace {

/// Replaces the auxiliary data of an owner.
class AuxiliaryEdit : public Change
{
public:
    /// @param data the owner's new data
    /// @param kind event of apply(), and of revert(), which tells an addition as a deletion
    AuxiliaryEdit(EventHub& hub, AuxiliaryOwner owner, AuxiliaryData data, StateChange_e kind);

    void apply() noexcept override { exchange(m_kind); }
    void revert() noexcept override;
    HeldMemory held() const noexcept override;

private:
    void exchange(StateChange_e kind) noexcept;

    EventHub& m_hub;
    AuxiliaryOwner m_owner;
    AuxiliaryData m_other;
    StateChange_e m_kind;
};

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

} // namespace

SetAuxiliaryItem::SetAuxiliaryItem(AuxDataLocation_e location, int object, std::string itemName, std::string value,
                                   bool retain)
    : m_location(location)
    , m_object(object)
    , m_item{std::move(itemName), std::move(value), retain}
{
}

std::string SetAuxiliaryItem::find(Pages const& pages)
{
    m_owner.emplace(pages, m_location, m_object);
    return m_owner->data() != nullptr ? "" : "There is nothing that could have the auxiliary data.";
}

std::string SetAuxiliaryItem::reasonAgainst() const
{
    bool const isName = m_owner->data()->indexOf(m_item.name) != 0 || AuxiliaryData::isName(m_item.name);
    return isName ? "" : "The name must begin with a letter; letters, digits, \"_\" and \".\" may follow.";
}

std::shared_ptr<Change> SetAuxiliaryItem::makeChange(EventHub& events)
{
    AuxiliaryData const& data = *m_owner->data();
    int const number = data.indexOf(m_item.name);
    AuxiliaryData::Item const& before = data.item(number);
    bool const isSame = before.name == m_item.name && before.value == m_item.value && before.retain == m_item.retain;
    if (number != 0 && isSame) {
        return nullptr;
    }
    AuxiliaryData after = data;
    after.set(m_item.name, m_item.value, m_item.retain);
    StateChange_e const kind = number == 0 ? StateChange_AuxDataAdded : StateChange_AuxDataAltered;
    return std::make_shared<AuxiliaryEdit>(events, *m_owner, std::move(after), kind);
}

} // namespace veldraw::kernel

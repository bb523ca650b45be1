#include "kernel/operations/AuxiliaryOperation.h"

#include "kernel/events/EventHub.h"
#include "kernel/frames/Pages.h"
#include "kernel/undo/Change.h"

#include <utility>

namespace veldraw::kernel {

namespace {

StateChange_e oppositeOf(StateChange_e kind)
{
    switch (kind) {
    case StateChange_AuxDataAdded:
        return StateChange_AuxDataDeleted;
    case StateChange_AuxDataDeleted:
        return StateChange_AuxDataAdded;
    default:
        return kind;
    }
}

/// Whether an owner of this kind is a part of a data set, or the data set.
bool isOfDataSet(AuxDataLocation_e location)
{
    return location == AuxDataLocation_Zone || location == AuxDataLocation_DataSet || location == AuxDataLocation_Var;
}

/// Replaces the auxiliary data of an owner.
class AuxiliaryEdit : public Change
{
public:
    /// @param data the owner's new data
    /// @param kind event of apply(), and of revert(), which tells an addition as a deletion and the other way round
    AuxiliaryEdit(EventHub& hub, AuxiliaryOwner owner, AuxiliaryData data, StateChange_e kind);

    void apply() noexcept override { exchange(m_kind); }
    void revert() noexcept override { exchange(oppositeOf(m_kind)); }
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

std::string AuxiliaryOperation::find(Pages const& pages)
{
    m_owner.emplace(pages, m_location, m_object);
    m_dataSet = isOfDataSet(m_location) ? pages.activeDataSet().get() : nullptr;
    return m_owner->data() != nullptr ? "" : "There is nothing that could have the auxiliary data.";
}

std::shared_ptr<Change> AuxiliaryOperation::changeTo(AuxiliaryData data, StateChange_e kind, EventHub& events) const
{
    return std::make_shared<AuxiliaryEdit>(events, *m_owner, std::move(data), kind);
}

CommandText AuxiliaryOperation::withOwner(CommandText text) const
{
    switch (m_location) {
    case AuxDataLocation_Zone:
        return text.number("zone", m_object);
    case AuxDataLocation_Var:
        return text.number("variable", m_object);
    case AuxDataLocation_LineMap:
        return text.number("line-map", m_object);
    case AuxDataLocation_Frame:
        return text.word("owner", "frame");
    case AuxDataLocation_Page:
        return text.word("owner", "page");
    case AuxDataLocation_Layout:
        return text.word("owner", "layout");
    case AuxDataLocation_DataSet:
        break;
    }
    return text.word("owner", "data-set");
}

} // namespace veldraw::kernel

#include "kernel/operations/SetAuxiliaryItem.h"

#include <utility>

namespace veldraw::kernel {

SetAuxiliaryItem::SetAuxiliaryItem(AuxDataLocation_e location, int object, std::string itemName, std::string value,
                                   bool retain)
    : AuxiliaryOperation(location, object)
    , m_item{std::move(itemName), std::move(value), retain}
{
}

std::string SetAuxiliaryItem::reasonAgainst() const
{
    if (data().indexOf(m_item.name) == 0 && !AuxiliaryData::isName(m_item.name)) {
        return "The name must begin with a letter; letters, digits, \"_\" and \".\" may follow.";
    }
    return AuxiliaryData::isValue(m_item.value) ? "" : "The value must not have zero bytes.";
}

std::shared_ptr<Change> SetAuxiliaryItem::makeChange(EventHub& events)
{
    int const number = data().indexOf(m_item.name);
    AuxiliaryData::Item const& before = data().item(number);
    bool const isSame = before.name == m_item.name && before.value == m_item.value && before.retain == m_item.retain;
    if (number != 0 && isSame) {
        return nullptr;
    }
    AuxiliaryData after = data();
    after.set(m_item.name, m_item.value, m_item.retain);
    return changeTo(std::move(after), number == 0 ? StateChange_AuxDataAdded : StateChange_AuxDataAltered, events);
}

CommandText SetAuxiliaryItem::command() const
{
    return withOwner(CommandText("set-auxiliary-data")
                         .quoted("name", m_item.name)
                         .quoted("value", m_item.value)
                         .flag("save", m_item.retain));
}

} // namespace veldraw::kernel

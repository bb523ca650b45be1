#include "kernel/operations/SetAuxiliaryItem.h"

#include "kernel/frames/AuxiliaryEdit.h"

namespace veldraw::kernel {

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

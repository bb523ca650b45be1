#include "kernel/operations/DeleteAuxiliaryItem.h"

#include <utility>

namespace veldraw::kernel {

DeleteAuxiliaryItem::DeleteAuxiliaryItem(AuxDataLocation_e location, int object, std::string itemName)
    : AuxiliaryOperation(location, object)
    , m_itemName(std::move(itemName))
{
}

std::string DeleteAuxiliaryItem::reasonAgainst() const
{
    return data().indexOf(m_itemName) != 0 ? "" : "There is no auxiliary data of this name.";
}

std::shared_ptr<Change> DeleteAuxiliaryItem::makeChange(EventHub& events)
{
    AuxiliaryData after = data();
    after.remove(m_itemName);
    return changeTo(std::move(after), StateChange_AuxDataDeleted, events);
}

CommandText DeleteAuxiliaryItem::command() const
{
    return withOwner(CommandText("delete-auxiliary-data").quoted("name", m_itemName));
}

} // namespace veldraw::kernel

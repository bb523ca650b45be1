#include "dialogs/models/TableModelAbstract.h"

#include "dialogs/models/TableModelListenerInterface.h"

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

TableModelAbstract::TableModelAbstract() = default;

TableModelAbstract::~TableModelAbstract() = default;

bool TableModelAbstract::isEditable(ModelIndex const&) const
{
    return false;
}

bool TableModelAbstract::setStr(ModelIndex const&, std::string const&)
{
    return false;
}

void TableModelAbstract::addListener(TableModelListenerInterface* listener)
{
    m_listeners.add(listener);
}

void TableModelAbstract::removeListener(TableModelListenerInterface* listener)
{
    m_listeners.remove(listener);
}

void TableModelAbstract::notifyOfDataChanged()
{
    m_listeners.tell([this](TableModelListenerInterface& listener) { listener.dataChanged(*this); });
}

void TableModelAbstract::notifyOfItemChanged(ModelIndex const& index)
{
    m_listeners.tell([this, &index](TableModelListenerInterface& listener) { listener.itemChanged(index, *this); });
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models

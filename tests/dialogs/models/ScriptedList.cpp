#include "tests/dialogs/models/ScriptedList.h"

#include <utility>

namespace veldraw::tests {

std::vector<ScriptedList::Item> ScriptedList::numbered(int count)
{
    std::vector<Item> items;
    for (int value = 1; value <= count; ++value)
        items.push_back({value, std::to_string(value)});
    return items;
}

int ScriptedList::get(int index) const
{
    ++getCalls;
    return at(index).value;
}

bool ScriptedList::setEditedItem(std::string const& text, int index) const
{
    edits.push_back(std::to_string(index) + ": " + text);
    return acceptsEdits;
}

void ScriptedList::reset(std::vector<Item> items)
{
    m_items = std::move(items);
    signalDataChanged();
}

void ScriptedList::change(int row, Item item)
{
    m_items.at(static_cast<std::size_t>(row)) = std::move(item);
    signalItemChanged(row);
}

void ScriptedList::insert(int row, std::vector<Item> items)
{
    m_items.insert(m_items.begin() + row, items.begin(), items.end());
    signalItemsInserted(row, row + static_cast<int>(items.size()) - 1);
}

void ScriptedList::remove(int first, int last)
{
    signalItemsAboutToBeRemoved(first, last);
    m_items.erase(m_items.begin() + first, m_items.begin() + last + 1);
    signalItemsRemoved();
}

} // namespace veldraw::tests

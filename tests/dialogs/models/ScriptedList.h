#pragma once

#include "dialogs/models/ListModelAbstract.h"

#include <string>
#include <vector>

namespace veldraw::tests {

/// A list that a test changes at will. Values are kept beside their texts; a change is told as the test says.
class ScriptedList : public sdk::ui::dialogs::propertybindings::models::ListModelAbstract<int>
{
public:
    struct Item
    {
        int value;
        std::string text;
        bool header = false;
    };

    ScriptedList() = default;
    explicit ScriptedList(std::vector<Item> items)
        : m_items(std::move(items))
    {
    }

    /// @p count items with the values 1, 2, ... and the texts "1", "2", ...
    static std::vector<Item> numbered(int count);

    int size() const override { return static_cast<int>(m_items.size()); }
    int get(int index) const override;
    std::string getStr(int index) const override { return at(index).text; }
    std::string getStrForEdit(int index) const override { return "edit " + at(index).text; }
    bool isHeader(int index) const override { return at(index).header; }
    bool isEditable() const override { return editable; }
    bool setEditedItem(std::string const& text, int index) const override;

    /// Replaces all, told as one change of the whole.
    void reset(std::vector<Item> items);
    /// Replaces one item, told as a change of this item.
    void change(int row, Item item);
    void insert(int row, std::vector<Item> items);
    void remove(int first, int last);

    /// Signals that lie.
    void announceRemoval(int first, int last) { signalItemsAboutToBeRemoved(first, last); }
    void claimRemoved() { signalItemsRemoved(); }
    void claimInserted(int first, int last) { signalItemsInserted(first, last); }
    void claimChanged(int row) { signalItemChanged(row); }
    void claimDataChanged() { signalDataChanged(); }

    bool editable = false;
    mutable int getCalls = 0;
    mutable std::vector<std::string> edits; // "<row>: <text>"
    bool acceptsEdits = true;

private:
    Item const& at(int index) const { return m_items.at(static_cast<std::size_t>(index)); }

    std::vector<Item> m_items;
};

} // namespace veldraw::tests

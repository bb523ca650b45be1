#include "dialogs/models/PremappedListModel.h"

#include <cstddef>
#include <stdexcept>

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

template <typename T>
PremappedListModel<T>::PremappedListModel(Entry const* table, int count)
    : m_entries(count > 0 ? std::vector<Entry>(table, table + count) : std::vector<Entry>())
{
}

template <typename T>
PremappedListModel<T>::PremappedListModel(LabelledValue<T> const* first, LabelledValue<T> const* last)
    : m_entries([&] {
        std::vector<Entry> entries;
        for (LabelledValue<T> const* row = first; row != last; ++row)
            entries.push_back({row->label, row->value});
        return entries;
    }())
{
}

template <typename T>
PremappedListModel<T>::~PremappedListModel() = default;

template <typename T>
int PremappedListModel<T>::size() const
{
    return static_cast<int>(m_entries.size());
}

template <typename T>
T PremappedListModel<T>::get(int index) const
{
    return at(index).value;
}

template <typename T>
std::string PremappedListModel<T>::getStr(int index) const
{
    return at(index).label;
}

template <typename T>
typename PremappedListModel<T>::Entry const& PremappedListModel<T>::at(int index) const
{
    // The text of the standard library's own check differs from one library to the next.
    if (index < 0 || index >= size())
        throw std::out_of_range("invalid vector subscript");
    return m_entries[static_cast<std::size_t>(index)];
}

#define VELDRAW_INSTANTIATE(T) template class PremappedListModel<T>;
VELDRAW_FOR_EACH_CHOICE_TYPE(VELDRAW_INSTANTIATE)
#undef VELDRAW_INSTANTIATE

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models

#include "dialogs/models/ListModelAbstract.h"

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

template <typename T>
ListModelAbstract<T>::ListModelAbstract() = default;

template <typename T>
ListModelAbstract<T>::~ListModelAbstract() = default;

template <typename T>
std::string ListModelAbstract<T>::getStrForEdit(int index) const
{
    return this->getStr(index);
}

template <typename T>
void ListModelAbstract<T>::set(T, int)
{
}

template <typename T>
bool ListModelAbstract<T>::setEditedItem(std::string const&, int) const
{
    return false;
}

template <typename T>
bool ListModelAbstract<T>::isEditable() const
{
    return false;
}

template <typename T>
bool ListModelAbstract<T>::isHeader(int) const
{
    return false;
}

template <typename T>
int ListModelAbstract<T>::indexOf(T const& value) const
{
    // The size is asked on every round: the list may shrink while it is being walked.
    for (int index = 0; index < this->size(); ++index) {
        if (this->get(index) == value)
            return index;
    }
    return -1;
}

template class ListModelAbstract<int>;
template class ListModelAbstract<double>;
#define VELDRAW_INSTANTIATE(T) template class ListModelAbstract<T>;
VELDRAW_FOR_EACH_CHOICE_TYPE(VELDRAW_INSTANTIATE)
#undef VELDRAW_INSTANTIATE

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models

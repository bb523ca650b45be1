#include "dialogs/models/GenericModelWrapper.h"

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

template <typename T>
GenericModelWrapper<T>::GenericModelWrapper(ListModelInterface<T> const* model)
    : m_model(model)
{
}

template <typename T>
int GenericModelWrapper<T>::size() const
{
    return m_model->size();
}

template <typename T>
bool GenericModelWrapper<T>::isEditable() const
{
    return m_model->isEditable();
}

template <typename T>
bool GenericModelWrapper<T>::isHeader(int index) const
{
    return m_model->isHeader(index);
}

template <typename T>
std::string GenericModelWrapper<T>::getStr(int index) const
{
    return m_model->getStr(index);
}

template <typename T>
std::string GenericModelWrapper<T>::getStrForEdit(int index) const
{
    return m_model->getStrForEdit(index);
}

template <typename T>
bool GenericModelWrapper<T>::setEditedItem(std::string const& text, int index) const
{
    return m_model->setEditedItem(text, index);
}

template <typename T>
QVariant GenericModelWrapper<T>::get(int index) const
{
    return QVariant(static_cast<int>(m_model->get(index)));
}

template class GenericModelWrapper<int>;
#define VELDRAW_INSTANTIATE(T) template class GenericModelWrapper<T>;
VELDRAW_FOR_EACH_CHOICE_TYPE(VELDRAW_INSTANTIATE)
#undef VELDRAW_INSTANTIATE

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models

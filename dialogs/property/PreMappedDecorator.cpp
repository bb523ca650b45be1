#include "dialogs/property/PreMappedDecorator.h"

#include <algorithm>
#include <stdexcept>

namespace veldraw {

using sdk::ui::propertymanager::UIStylePropertyAbstract;
using sdk::ui::propertymanager::UIStylePropertyDecoratorAbstract;

template <typename T>
PreMappedDecorator<T>::PreMappedDecorator(boost::shared_ptr<UIStylePropertyAbstract<T>> decorated, Items items)
    : UIStylePropertyDecoratorAbstract<std::string, T>(std::move(decorated))
    , m_items(std::move(items))
{
}

template <typename T>
PreMappedDecorator<T>::~PreMappedDecorator() = default;

template <typename T>
PreMappedDecorator<T>& PreMappedDecorator<T>::operator=(PreMappedDecorator const&)
{
    return *this;
}

template <typename T>
void PreMappedDecorator<T>::storeValue(std::string const&)
{
}

template <typename T>
bool PreMappedDecorator<T>::isEqual(std::string const&) const
{
    return true;
}

template <typename T>
std::string PreMappedDecorator<T>::retrieveValue() const
{
    T const value = this->decoratedValue();
    auto const found =
        std::find_if(m_items.begin(), m_items.end(), [value](auto const& item) { return item.first == value; });
    if (found == m_items.end())
        throw std::out_of_range("PreMappedDecorator: value not found in pre-mapped item list.");
    return found->second;
}

template class PreMappedDecorator<VarStatus_e>;

} // namespace veldraw

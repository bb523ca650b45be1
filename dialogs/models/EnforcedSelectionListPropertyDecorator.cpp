#include "dialogs/models/EnforcedSelectionListPropertyDecorator.h"

#include <utility>

namespace veldraw {

template <typename T>
EnforcedSelectionListPropertyDecorator<T>::EnforcedSelectionListPropertyDecorator(
    boost::shared_ptr<Decorated> decorated, boost::shared_ptr<ListModel const> model)
    : sdk::ui::propertymanager::UIStylePropertyDecoratorAbstract<std::set<T>, std::set<T>>(std::move(decorated))
    , m_model(std::move(model))
{
}

template <typename T>
EnforcedSelectionListPropertyDecorator<T>::~EnforcedSelectionListPropertyDecorator() = default;

template <typename T>
EnforcedSelectionListPropertyDecorator<T>&
EnforcedSelectionListPropertyDecorator<T>::operator=(EnforcedSelectionListPropertyDecorator const& other)
{
    PropertyAbstract<std::set<T>>::operator=(other);
    return *this;
}

template <typename T>
void EnforcedSelectionListPropertyDecorator<T>::storeValue(std::set<T> const& newValue)
{
    if (!newValue.empty() || m_model->size() == 0)
        this->setDecoratedValue(newValue);
    else
        this->setDecoratedValue({m_model->get(0)});
}

template <typename T>
bool EnforcedSelectionListPropertyDecorator<T>::isEqual(std::set<T> const& other) const
{
    return !other.empty() && other == retrieveValue();
}

template <typename T>
std::set<T> EnforcedSelectionListPropertyDecorator<T>::retrieveValue() const
{
    return this->decoratedValue();
}

template class EnforcedSelectionListPropertyDecorator<int>;

} // namespace veldraw

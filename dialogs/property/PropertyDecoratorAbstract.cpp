#include "dialogs/property/PropertyDecoratorAbstract.h"

#include <boost/signals2/shared_connection_block.hpp>

#include <utility>

namespace veldraw {

template <typename T>
PropertyDecoratorAbstract<T>::PropertyDecoratorAbstract(boost::shared_ptr<PropertyAbstract<T>> decorated,
                                                        boost::shared_ptr<ValidatorInterface<T> const> validator)
    : PropertyAbstract<T>(std::move(validator))
    , m_decorated(std::move(decorated))
    , m_decoratedConnection(m_decorated->connectValueChanged([this](T const&) { tellValue(); }))
{
}

template <typename T>
PropertyDecoratorAbstract<T>::~PropertyDecoratorAbstract() = default;

template <typename T>
PropertyDecoratorAbstract<T>& PropertyDecoratorAbstract<T>::operator=(PropertyDecoratorAbstract const& other)
{
    PropertyAbstract<T>::operator=(other);
    return *this;
}

template <typename T>
T PropertyDecoratorAbstract<T>::decoratedValue() const
{
    return m_decorated->value();
}

template <typename T>
void PropertyDecoratorAbstract<T>::setDecoratedValue(T const& newValue)
{
    boost::signals2::shared_connection_block const noEcho(m_decoratedConnection);
    m_decorated->setValue(newValue);
}

template <typename T>
void PropertyDecoratorAbstract<T>::tellValue() const
{
    this->signalValueChanged(this->value());
}

template class PropertyDecoratorAbstract<double>;

} // namespace veldraw

#include "dialogs/property/PropertyScalingDecorator.h"

#include "dialogs/property/ScalingValidator.h"

#include <boost/make_shared.hpp>

namespace veldraw {

template <typename T>
PropertyScalingDecorator<T>::PropertyScalingDecorator(boost::shared_ptr<PropertyAbstract<T>> const& decorated,
                                                      boost::function<T()> const& scale)
    : PropertyDecoratorAbstract<T>(decorated, boost::make_shared<ScalingValidator>(decorated, scale))
    , m_scale(scale)
{
}

template <typename T>
PropertyScalingDecorator<T>::~PropertyScalingDecorator() = default;

template <typename T>
PropertyScalingDecorator<T>& PropertyScalingDecorator<T>::operator=(PropertyScalingDecorator const& other)
{
    PropertyAbstract<T>::operator=(other);
    return *this;
}

template <typename T>
void PropertyScalingDecorator<T>::storeValue(T const& newValue)
{
    this->setDecoratedValue(newValue / m_scale());
}

template <typename T>
T PropertyScalingDecorator<T>::retrieveValue() const
{
    return this->decoratedValue() * m_scale();
}

template class PropertyScalingDecorator<double>;

} // namespace veldraw

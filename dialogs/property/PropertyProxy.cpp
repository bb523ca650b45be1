#include "dialogs/property/PropertyProxy.h"

#include <boost/signals2/shared_connection_block.hpp>

#include <utility>

namespace veldraw {

template <typename T>
PropertyProxy<T>::PropertyProxy(boost::shared_ptr<PropertyAbstract<T>> target,
                                boost::shared_ptr<ValidatorInterface<T> const> validator)
    : PropertyAbstract<T>(std::move(validator))
{
    setProperty(std::move(target));
}

template <typename T>
PropertyProxy<T>::~PropertyProxy() = default;

template <typename T>
PropertyProxy<T>& PropertyProxy<T>::operator=(PropertyProxy const& other)
{
    PropertyAbstract<T>::operator=(other);
    return *this;
}

template <typename T>
void PropertyProxy<T>::setProperty(boost::shared_ptr<PropertyAbstract<T>> target)
{
    m_target = std::move(target);
    m_targetConnection = m_target->connectValueChanged([this](T const& value) { this->emitValueChangedSignal(value); });
}

template <typename T>
void PropertyProxy<T>::notifyTargetChanged()
{
    this->emitValueChangedSignal(this->value());
}

template <typename T>
void PropertyProxy<T>::storeValue(T const& newValue)
{
    // A slot may replace the target while it is being told.
    boost::shared_ptr<PropertyAbstract<T>> const target = m_target;
    target->validate(newValue);
    if (target->isEqual(newValue))
        return;
    boost::signals2::shared_connection_block const noEcho(m_targetConnection);
    target->storeValue(newValue);
    target->emitValueChangedSignal(target->retrieveValue());
}

template <typename T>
T PropertyProxy<T>::retrieveValue() const
{
    return m_target->retrieveValue();
}

template class PropertyProxy<long long>;

} // namespace veldraw

#pragma once

#include "dialogs/property/Property.h"

#include <utility>

namespace veldraw {

template <typename T>
Property<T>::Property()
    : m_value()
{
}

template <typename T>
Property<T>::Property(T const& initialValue)
    : m_value(initialValue)
{
}

template <typename T>
Property<T>::Property(T const& initialValue, boost::shared_ptr<ValidatorInterface<T> const> validator)
    : PropertyAbstract<T>(std::move(validator))
    , m_value(initialValue)
{
}

template <typename T>
Property<T>::~Property() = default;

template <typename T>
Property<T>& Property<T>::operator=(Property const& other)
{
    PropertyAbstract<T>::operator=(other);
    return *this;
}

template <typename T>
void Property<T>::storeValue(T const& newValue)
{
    m_value = newValue;
}

template <typename T>
T Property<T>::retrieveValue() const
{
    return m_value;
}

} // namespace veldraw

#pragma once

#include "dialogs/property/AllowAnyValueValidator.h"
#include "dialogs/property/PropertyAbstract.h"
#include "platform/exception/InvalidPropertyValueException.h"
#include "platform/signals/WholeConnection.h"

#include <boost/make_shared.hpp>

#include <utility>

namespace veldraw {

template <typename T>
PropertyAbstract<T>::PropertyAbstract()
    : PropertyAbstract(boost::make_shared<AllowAnyValueValidator<T>>())
{
}

template <typename T>
PropertyAbstract<T>::PropertyAbstract(boost::shared_ptr<ValidatorInterface<T> const> validator)
    : m_validator(std::move(validator))
    , m_baseSignalConnection(signalValueChanged.connect([this](T const&) { callBaseClassSignalIfThereAreListeners(); }))
{
}

template <typename T>
PropertyAbstract<T>::~PropertyAbstract() = default;

template <typename T>
PropertyAbstract<T>& PropertyAbstract<T>::operator=(PropertyAbstract const& other)
{
    setValue(other.retrieveValue());
    return *this;
}

template <typename T>
void PropertyAbstract<T>::setValue(T const& newValue)
{
    validate(newValue);
    if (isEqual(newValue))
        return;
    storeValue(newValue);
    // Storing may have mapped or rounded: what is told is what holds now.
    emitValueChangedSignal(retrieveValue());
}

template <typename T>
T PropertyAbstract<T>::value() const
{
    return retrieveValue();
}

template <typename T>
PropertyAbstract<T>::operator T() const
{
    return retrieveValue();
}

template <typename T>
void PropertyAbstract<T>::operator=(T const& newValue)
{
    setValue(newValue);
}

template <typename T>
boost::shared_ptr<ValidatorInterface<T> const> PropertyAbstract<T>::validator() const
{
    return m_validator;
}

template <typename T>
boost::signals2::connection PropertyAbstract<T>::connectValueChanged(typename ValueChangedSignal::slot_type const& slot,
                                                                     boost::signals2::connect_position position) const
{
    return sdk::connectWhole(
        slot, [=](auto const& whole) { return signalValueChanged.connect(whole, position); },
        [this] { signalValueChangedConnected(); });
}

template <typename T>
void PropertyAbstract<T>::signalValueChangedConnected() const
{
}

template <typename T>
bool PropertyAbstract<T>::isEqual(T const& other) const
{
    return other == retrieveValue();
}

template <typename T>
void PropertyAbstract<T>::validate(T const& newValue) const
{
    // The copy keeps the validator alive, whatever happens meanwhile to this property.
    boost::shared_ptr<ValidatorInterface<T> const> const judge = m_validator;
    ValidationResult const result = judge->validate(newValue);
    if (!result.isValid())
        throw InvalidPropertyValueException(result.errorString());
}

template <typename T>
void PropertyAbstract<T>::emitValueChangedSignal(T const& newValue) const
{
    signalValueChanged(newValue);
}

template <typename T>
std::size_t PropertyAbstract<T>::valueChangedListenerCount() const
{
    // One slot is our own.
    return signalValueChanged.num_slots() - 1;
}

template <typename T>
void PropertyAbstract<T>::callBaseClassSignalIfThereAreListeners() const
{
    if (signalPropertyChanged.num_slots() > 0)
        signalPropertyChanged();
}

} // namespace veldraw

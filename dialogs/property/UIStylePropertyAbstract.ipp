#pragma once

#include "dialogs/property/UIStylePropertyAbstract.h"

#include <utility>

namespace veldraw::sdk::ui::propertymanager {

template <typename T>
UIStylePropertyAbstract<T>::UIStylePropertyAbstract() = default;

template <typename T>
UIStylePropertyAbstract<T>::UIStylePropertyAbstract(boost::shared_ptr<ValidatorInterface<T> const> validator)
    : PropertyAbstract<T>(std::move(validator))
{
}

template <typename T>
UIStylePropertyAbstract<T>::~UIStylePropertyAbstract() = default;

template <typename T>
UIStylePropertyAbstract<T>& UIStylePropertyAbstract<T>::operator=(UIStylePropertyAbstract const& other)
{
    PropertyAbstract<T>::operator=(other);
    return *this;
}

} // namespace veldraw::sdk::ui::propertymanager

#pragma once

#include "dialogs/property/ValidatorInterface.h"

namespace veldraw {

template <typename T>
ValidatorInterface<T>::ValidatorInterface() = default;

template <typename T>
ValidatorInterface<T>::ValidatorInterface(ValidatorInterface const&)
{
}

template <typename T>
ValidatorInterface<T>& ValidatorInterface<T>::operator=(ValidatorInterface const&)
{
    return *this;
}

template <typename T>
ValidatorInterface<T>::~ValidatorInterface() = default;

} // namespace veldraw

#pragma once

#include "dialogs/property/PropertyAbstract.h"
#include "platform/exception/InvalidPropertyValueException.h"

#include <string>

namespace veldraw::tests {

// The words with which a property refuses a value.
template <typename T>
std::string refusalOf(PropertyAbstract<T>& property, T value)
{
    try {
        property.setValue(value);
    } catch (InvalidPropertyValueException const& refusal) {
        return refusal.what();
    }
    return "accepted";
}

} // namespace veldraw::tests

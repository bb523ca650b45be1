#pragma once

#include "dialogs/property/BoundedValueValidator.h"
#include "dialogs/property/Property.h"

#include <boost/make_shared.hpp>
#include <boost/shared_ptr.hpp>

namespace veldraw {

/// A property that takes the values from @p min to @p max, both included.
template <typename T>
boost::shared_ptr<Property<T>> boundedProperty(T value, T min, T max)
{
    using Validator = BoundedValueValidator<T>;
    return boost::make_shared<Property<T>>(
        value, boost::make_shared<Validator>(min, max, Validator::LowerInclusive, Validator::UpperInclusive));
}

} // namespace veldraw

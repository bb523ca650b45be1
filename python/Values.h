#pragma once

#include "python/ArrayLayout.h"
#include "python/ThingHandle.h"

#include <optional>
#include <utility>

namespace veldraw::python {

/// The values of a variable in a zone. They are loaded when they are touched, not before.
class Values
{
public:
    Values(ZoneHandle zone, VariableHandle variable)
        : m_zone(std::move(zone))
        , m_variable(std::move(variable))
    {
    }

    ZoneHandle const& zone() const { return m_zone; }
    VariableHandle const& variable() const { return m_variable; }

    /// The field now. @throws Failure when the zone or the variable has gone
    kernel::Field const& field() const;

    /// Dimensions of the zone that are not known yet are loaded. @throws Failure, pybind11::error_already_set; so do the following
    ArrayLayout layout() const;

    /// Loads the values unless they are loaded.
    void load() const;

    /// The values as they are now, loaded: an array that nobody can write to, which stays what it is whatever becomes of the data set.
    pybind11::array array() const;

    /// Smallest and largest finite value as far as known; computed where the values are loaded. None where there is no finite value.
    std::optional<std::pair<double, double>> range() const;

private:
    ZoneHandle m_zone;
    VariableHandle m_variable;
};

/// The module's class for values.
void addValues(pybind11::module_& module);

} // namespace veldraw::python

#pragma once

#include "tests/support/FakeStateChange.h"

#include <optional>

namespace veldraw::tests {

/// A state change of zones and variables that no kernel sent; either list may be missing.
class ValueChange : public FakeStateChange
{
public:
    ValueChange(int kind, std::optional<toolbox::Set> zones, std::optional<toolbox::Set> variables)
        : FakeStateChange(kind)
        , m_zones(std::move(zones))
        , m_variables(std::move(variables))
    {
    }

    bool hasZones() const override { return m_zones.has_value(); }
    bool hasVars() const override { return m_variables.has_value(); }
    toolbox::Set vars() const override { return m_variables.value_or(toolbox::Set()); }
    toolbox::Set zones() const override { return m_zones.value_or(toolbox::Set()); }

private:
    std::optional<toolbox::Set> m_zones;
    std::optional<toolbox::Set> m_variables;
};

} // namespace veldraw::tests

#include "kernel/operations/EnableZone.h"

#include "kernel/undo/SwapChange.h"

namespace veldraw::kernel {

std::string EnableZone::reasonAgainst() const
{
    return dataSet()->zone(m_zone) ? "" : noZone;
}

std::shared_ptr<Change> EnableZone::makeChange(EventHub& events)
{
    std::shared_ptr<Zone> const zone = dataSet()->zone(m_zone);
    return changeTo(events, zone, zone->enabled, m_isEnabled, {StateChange_ZonesEnabled, {m_zone}, {}, {}, 0});
}

std::string EnableVariable::reasonAgainst() const
{
    return dataSet()->variable(m_variable) ? "" : noVariable;
}

std::shared_ptr<Change> EnableVariable::makeChange(EventHub& events)
{
    std::shared_ptr<Variable> const variable = dataSet()->variable(m_variable);
    return changeTo(events, variable, variable->enabled, m_isEnabled,
                    {StateChange_VariablesEnabled, {}, {m_variable}, {}, 0});
}

CommandText EnableZone::command() const
{
    return CommandText(m_isEnabled ? "enable-zone" : "disable-zone").number("zone", m_zone);
}

CommandText EnableVariable::command() const
{
    return CommandText(m_isEnabled ? "enable-variable" : "disable-variable").number("variable", m_variable);
}

} // namespace veldraw::kernel

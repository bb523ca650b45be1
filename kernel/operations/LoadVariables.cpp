#include "kernel/operations/LoadVariables.h"

#include "kernel/undo/Change.h"

namespace veldraw::kernel {

std::string LoadVariables::reasonAgainst() const
{
    if (!m_zones.empty() && (*m_zones.begin() < 1 || *m_zones.rbegin() > dataSet()->zoneCount())) {
        return noZone;
    }
    bool const allExist =
        m_variables.empty() || (*m_variables.begin() >= 1 && *m_variables.rbegin() <= dataSet()->variableCount());
    return allExist ? "" : noVariable;
}

std::shared_ptr<DeferredLoad> LoadVariables::needs()
{
    auto load = std::make_shared<DeferredLoad>(*dataSet());
    for (int const zone : m_zones) {
        for (int const variable : m_variables) {
            load->addField(zone, variable);
        }
    }
    if (m_ranges == Ranges::Left) {
        load->leaveRanges();
    }
    return load;
}

std::shared_ptr<DeferredLoad> MakeVariablesAvailable::needs()
{
    std::shared_ptr<DeferredLoad> load = LoadVariables::needs();
    auto wanted = std::make_shared<std::set<UniqueId>>();
    for (int const variable : variables()) {
        wanted->insert(dataSet()->variable(variable)->id);
    }
    for (int const zone : zones()) {
        load->addWanted(zone, wanted);
    }
    return load;
}

std::string LoadDimensions::reasonAgainst() const
{
    return dataSet()->zone(m_zone) ? "" : noZone;
}

std::shared_ptr<DeferredLoad> LoadDimensions::needs()
{
    auto load = std::make_shared<DeferredLoad>(*dataSet());
    load->addDimensions(m_zone);
    return load;
}

CommandText LoadVariables::command() const
{
    return CommandText("load-variables").numbers("variables", m_variables).numbers("zones", m_zones);
}

} // namespace veldraw::kernel

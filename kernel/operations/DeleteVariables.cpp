#include "kernel/operations/DeleteVariables.h"

#include "kernel/data/VariableDeletion.h"

#include <algorithm>

namespace veldraw::kernel {

std::string DeleteVariables::reasonAgainst() const
{
    if (m_variables.empty()) {
        return "No variables were given.";
    }
    if (*m_variables.begin() < 1 || *m_variables.rbegin() > dataSet()->variableCount()) {
        return noVariable;
    }
    NumberSet const enabled = dataSet()->enabledVariables();
    bool const allEnabled = std::includes(m_variables.begin(), m_variables.end(), enabled.begin(), enabled.end());
    bool const all = static_cast<int>(m_variables.size()) == dataSet()->variableCount();
    bool const leavesNone = all || (allEnabled && !enabled.empty());
    return leavesNone ? "The last variable of a data set cannot be deleted." : "";
}

std::shared_ptr<Change> DeleteVariables::makeChange(EventHub& events)
{
    return std::make_shared<VariableDeletion>(events, dataSet(), m_variables);
}

CommandText DeleteVariables::command() const
{
    return CommandText("delete-variables").numbers("variables", m_variables);
}

} // namespace veldraw::kernel

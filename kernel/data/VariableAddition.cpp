#include "kernel/data/VariableAddition.h"

#include <set>

namespace veldraw::kernel {

namespace {

/// Values that several fields share are counted once.
HeldMemory memoryOf(std::vector<VariableAddition::OwnField> const& fields)
{
    HeldMemory sum;
    std::set<ShareGroup const*> seen;
    for (VariableAddition::OwnField const& own : fields) {
        Field const& field = own.field.field;
        bool const isNew = !field.isPassive() && seen.insert(field.group().get()).second;
        sum.values += isNew ? field.group()->buffer()->bytes() : 0;
    }
    return sum;
}

} // namespace

VariableAddition::VariableAddition(std::shared_ptr<DataSet> dataSet, std::vector<std::shared_ptr<Variable>> variables,
                                   std::vector<OwnField> fields)
    : m_dataSet(std::move(dataSet))
    , m_variables(std::move(variables))
    , m_fields(std::move(fields))
{
    m_dataSet->variables().reserve(m_dataSet->variables().size() + m_variables.size());
    for (auto const& zone : m_dataSet->zones()) {
        zone->fields.reserve(zone->fields.size() + m_variables.size()); // enough as long as this step is known
    }
    m_heldWhileOut = memoryOf(m_fields);
}

void VariableAddition::apply() noexcept
{
    for (auto const& variable : m_variables) {
        m_dataSet->variables().push_back(variable);
    }
    for (auto const& zone : m_dataSet->zones()) {
        zone->fields.resize(zone->fields.size() + m_variables.size());
    }
    for (OwnField& own : m_fields) {
        own.zone->fields[own.field.position] = std::move(own.field.field);
    }
    m_areOut = false;
}

void VariableAddition::revert() noexcept
{
    for (OwnField& own : m_fields) {
        own.field.field = std::move(own.zone->fields[own.field.position]);
    }
    for (auto const& zone : m_dataSet->zones()) {
        zone->fields.resize(zone->fields.size() - m_variables.size());
    }
    m_dataSet->variables().resize(m_dataSet->variables().size() - m_variables.size());
    m_areOut = true;
}

HeldMemory VariableAddition::held() const noexcept
{
    std::size_t const notes =
        m_variables.size() * (sizeof(Variable) + sizeof m_variables[0]) + m_fields.size() * sizeof(OwnField);
    HeldMemory sum{0, static_cast<std::int64_t>(notes)};
    if (m_areOut) {
        sum += m_heldWhileOut;
    }
    return sum;
}

} // namespace veldraw::kernel

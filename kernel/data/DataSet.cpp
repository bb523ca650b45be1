#include "kernel/data/DataSet.h"

#include "kernel/data/ZonesAhead.h"

namespace veldraw::kernel {

namespace {

/// Element with a one-based number, null when there is none.
template <typename Element>
std::shared_ptr<Element> elementAt(std::vector<std::shared_ptr<Element>> const& elements, int number)
{
    bool const exists = number >= 1 && number <= static_cast<int>(elements.size());
    return exists ? elements[static_cast<std::size_t>(number - 1)] : nullptr;
}

template <typename Element>
int numberOf(std::vector<std::shared_ptr<Element>> const& elements, UniqueId id)
{
    for (std::size_t at = 0; at < elements.size(); ++at) {
        if (elements[at]->id == id) {
            return static_cast<int>(at) + 1;
        }
    }
    return 0;
}

} // namespace

DataSet::DataSet(std::string title)
    : m_id(nextUniqueId())
    , m_title(std::move(title))
    , m_ranges(*this)
{
}

std::shared_ptr<Zone> DataSet::zone(int number) const
{
    prepareZonesBehind(m_zones, static_cast<std::size_t>(number)); // too far ahead for a bad one
    return elementAt(m_zones, number);
}

std::shared_ptr<Variable> DataSet::variable(int number) const
{
    return elementAt(m_variables, number);
}

Field const* DataSet::field(int zoneNumber, int variableNumber) const
{
    bool const zoneExists = zoneNumber >= 1 && zoneNumber <= zoneCount();
    if (!zoneExists || variableNumber < 1 || variableNumber > variableCount()) {
        return nullptr;
    }
    return &m_zones[static_cast<std::size_t>(zoneNumber - 1)]->fields[static_cast<std::size_t>(variableNumber - 1)];
}

int DataSet::zoneNumber(UniqueId id) const
{
    return numberOf(m_zones, id);
}

int DataSet::variableNumber(UniqueId id) const
{
    return numberOf(m_variables, id);
}

int DataSet::findVariable(std::string const& name) const
{
    for (std::size_t at = 0; at < m_variables.size(); ++at) {
        if (m_variables[at]->name == name) {
            return static_cast<int>(at) + 1;
        }
    }
    return 0;
}

NumberSet DataSet::enabledZones() const
{
    NumberSet numbers;
    for (std::size_t at = 0; at < m_zones.size(); ++at) {
        prepareZonesBehind(m_zones, at);
        if (m_zones[at]->enabled) {
            numbers.insert(static_cast<int>(at) + 1);
        }
    }
    return numbers;
}

NumberSet DataSet::enabledVariables() const
{
    NumberSet numbers;
    for (std::size_t at = 0; at < m_variables.size(); ++at) {
        if (m_variables[at]->enabled) {
            numbers.insert(static_cast<int>(at) + 1);
        }
    }
    return numbers;
}

int DataSet::addVariable(std::shared_ptr<Variable> variable)
{
    if (!variable) {
        return 0;
    }
    for (auto const& each : m_zones) {
        each->fields.reserve(each->fields.size() + 1);
    }
    m_variables.push_back(std::move(variable));
    for (auto const& each : m_zones) {
        each->fields.emplace_back();
    }
    return variableCount();
}

int DataSet::addZone(std::shared_ptr<Zone> zone)
{
    if (!zone) {
        return 0;
    }
    zone->fields.resize(m_variables.size());
    m_zones.push_back(std::move(zone));
    return zoneCount();
}

} // namespace veldraw::kernel

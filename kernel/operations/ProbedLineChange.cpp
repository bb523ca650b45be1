#include "kernel/operations/ProbedLineChange.h"

#include <algorithm>

namespace veldraw::kernel {

namespace {

std::vector<std::shared_ptr<Variable>> asList(std::shared_ptr<Variable> const& variable)
{
    return variable ? std::vector{variable} : std::vector<std::shared_ptr<Variable>>();
}

} // namespace

ProbedLineChange::ProbedLineChange(EventHub& hub, std::shared_ptr<DataSet> const& dataSet,
                                   std::shared_ptr<Variable> const& variable, ZoneAddition::Copy zone)
    : m_hub(hub)
    , m_variable(dataSet, asList(variable), {})
    , m_zone(m_silent, dataSet, {std::move(zone)})
{
    if (variable) {
        int const number = dataSet->variableCount() + 1;
        m_events.push_back({StateChange_VariablesAdded, {}, {number}, {}, 0});
        m_eventsBack.push_back({StateChange_VariablesDeleted, {}, {number}, {}, 0});
    }
    int const number = dataSet->zoneCount() + 1;
    m_events.push_back({StateChange_ZonesAdded, {number}, {}, {}, 0});
    m_eventsBack.push_back({StateChange_ZonesDeleted, {number}, {}, {}, 0});
    std::reverse(m_eventsBack.begin(), m_eventsBack.end());
}

void ProbedLineChange::apply() noexcept
{
    m_variable.apply();
    m_zone.apply();
    tell(m_events);
}

void ProbedLineChange::revert() noexcept
{
    m_zone.revert();
    m_variable.revert();
    tell(m_eventsBack);
}

void ProbedLineChange::tell(std::vector<StateChangeEvent> const& events) noexcept
{
    for (StateChangeEvent const& event : events) {
        m_hub.emitEvent(event);
    }
}

HeldMemory ProbedLineChange::held() const noexcept
{
    HeldMemory sum = m_variable.held();
    sum += m_zone.held();
    for (StateChangeEvent const& event : m_events) {
        sum.notes += 2 * bytesOfLists(event);
    }
    return sum;
}

} // namespace veldraw::kernel

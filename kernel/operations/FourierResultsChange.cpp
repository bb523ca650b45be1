#include "kernel/operations/FourierResultsChange.h"

#include <algorithm>
#include <set>

namespace veldraw::kernel {

FourierResultsChange::FourierResultsChange(EventHub& hub, std::shared_ptr<DataSet> dataSet, Parts parts)
    : m_hub(hub)
    , m_dataSet(std::move(dataSet))
    , m_bytesOfResults(bytesOfResults(parts))
    , m_variables(m_dataSet, parts.variables, std::move(parts.newFields))
    , m_zones(m_silent, m_dataSet, parts.zones)
    , m_fields(m_silent, std::move(parts.replacements), {})
{
    prepareEvents(parts);
    m_states = std::move(parts.states);
    m_record = std::move(parts.record);
}

/// Values that several fields share are counted once, wherever these are.
std::int64_t FourierResultsChange::bytesOfResults(Parts const& parts)
{
    std::set<std::shared_ptr<ShareGroup>> groups;
    for (VariableAddition::OwnField const& own : parts.newFields) {
        groups.insert(own.field.field.group());
    }
    for (ZoneAddition::Copy const& copy : parts.zones) {
        for (NewField const& own : copy.fields) {
            groups.insert(own.field.group());
        }
    }
    for (FieldReplacement::ZonePart const& part : parts.replacements) {
        for (NewField const& replacement : part.fields) {
            groups.insert(replacement.field.group());
        }
    }
    std::int64_t sum = 0;
    for (std::shared_ptr<ShareGroup> const& group : groups) {
        sum += group->bytesInMemory();
    }
    return sum;
}

void FourierResultsChange::prepareEvents(Parts const& parts)
{
    auto const add = [this](StateChange_e kind, StateChange_e back, NumberSet zones, NumberSet variables) {
        m_events.push_back({kind, zones, variables, {}, 0});
        m_eventsBack.push_back({back, std::move(zones), std::move(variables), {}, 0});
    };
    auto const numbersAfter = [](int last, std::size_t count) {
        NumberSet numbers;
        for (int number = last + 1; number <= last + static_cast<int>(count); ++number) {
            numbers.insert(number);
        }
        return numbers;
    };
    NumberSet resized;
    for (ZoneState const& state : parts.states) {
        if (state.zone->i != state.points) {
            resized.insert(m_dataSet->zoneNumber(state.zone->id));
        }
    }
    if (!parts.variables.empty()) {
        add(StateChange_VariablesAdded, StateChange_VariablesDeleted, {},
            numbersAfter(m_dataSet->variableCount(), parts.variables.size()));
    }
    if (!parts.zones.empty()) {
        add(StateChange_ZonesAdded, StateChange_ZonesDeleted, numbersAfter(m_dataSet->zoneCount(), parts.zones.size()),
            {});
    }
    if (!resized.empty()) {
        add(StateChange_ZonesEnabled, StateChange_ZonesEnabled, std::move(resized), {});
    }
    if (!parts.replacedVariables.empty()) {
        add(StateChange_ValuesAltered, StateChange_ValuesAltered, parts.replacedZones, parts.replacedVariables);
    }
    if (!parts.states.empty()) {
        add(StateChange_AuxDataAltered, StateChange_AuxDataAltered, {}, {});
    }
    std::reverse(m_eventsBack.begin(), m_eventsBack.end());
}

void FourierResultsChange::apply() noexcept
{
    m_variables.apply();
    m_zones.apply();
    m_fields.apply();
    exchangeStates();
    m_areOut = false;
    tell(m_events);
}

void FourierResultsChange::revert() noexcept
{
    exchangeStates();
    m_fields.revert();
    m_zones.revert();
    m_variables.revert();
    m_areOut = true;
    tell(m_eventsBack);
}

void FourierResultsChange::exchangeStates() noexcept
{
    for (ZoneState& state : m_states) {
        std::swap(state.zone->i, state.points);
        std::swap(state.zone->auxiliaryData, state.notes);
    }
    std::swap(m_dataSet->transformRecord(), m_record);
}

void FourierResultsChange::tell(std::vector<StateChangeEvent> const& events) noexcept
{
    for (StateChangeEvent const& event : events) {
        m_hub.emitEvent(event);
    }
}

HeldMemory FourierResultsChange::held() const noexcept
{
    HeldMemory sum = m_variables.held();
    sum += m_zones.held();
    sum += m_fields.held();
    if (m_areOut) {
        sum.values =
            m_bytesOfResults; // and not those of each part, which may be the same; what they replace is in the data set
    }
    std::size_t const lists = m_record.zones.size() * sizeof(TransformRecord::ResultZone) +
                              m_record.variables.size() * sizeof(TransformRecord::ResultVariables) +
                              m_states.size() * sizeof(ZoneState);
    sum.notes += static_cast<std::int64_t>(lists);
    for (StateChangeEvent const& event : m_events) {
        sum.notes += 2 * bytesOfLists(event);
    }
    return sum;
}

} // namespace veldraw::kernel

#include "kernel/operations/FourierResults.h"

#include "kernel/base/Text.h"

#include <algorithm>

namespace veldraw::kernel {

namespace {

template <typename Element>
std::set<std::string> namesOf(std::vector<std::shared_ptr<Element>> const& elements)
{
    std::set<std::string> names;
    for (auto const& element : elements) {
        names.insert(element->name);
    }
    return names;
}

AuxiliaryData noted(AuxiliaryData data, std::vector<AuxiliaryData::Item> const& notes)
{
    for (AuxiliaryData::Item const& note : notes) {
        if (note.value.empty()) {
            data.remove(note.name);
        } else {
            data.set(note.name, note.value, note.retain);
        }
    }
    return data;
}

} // namespace

FourierResults::FourierResults(std::shared_ptr<DataSet> dataSet, NumberSet const& dependents, Places places)
    : m_dataSet(std::move(dataSet))
    , m_places(places)
    , m_variableNames(namesOf(m_dataSet->variables()))
    , m_zoneNames(namesOf(m_dataSet->zones()))
{
    m_parts.record = m_dataSet->transformRecord();
    for (int const dependent : dependents) {
        int const earlier = places.overVariables ? earlierVariables(dependent) : 0;
        if (earlier > 0) {
            m_triples.push_back(earlier);
        } else {
            addVariables(dependent);
        }
        for (int place = 0; place < 3; ++place) {
            m_variables.insert(m_triples.back() + place);
        }
    }
}

/// Number of the first of the latest three variables with results of a dependent one that are enabled and still follow each
/// other; 0 for none.
int FourierResults::earlierVariables(int dependent) const
{
    std::vector<TransformRecord::ResultVariables> const& known = m_parts.record.variables;
    for (auto result = known.rbegin(); result != known.rend(); ++result) {
        bool const isOfThis = result->source == m_dataSet->variable(dependent)->id;
        int const first = isOfThis ? m_dataSet->variableNumber(result->variables[0]) : 0;
        bool areThere = first > 0;
        for (int place = 0; place < 3 && areThere; ++place) {
            std::shared_ptr<Variable> const variable = m_dataSet->variable(first + place);
            areThere =
                variable && variable->enabled && variable->id == result->variables[static_cast<std::size_t>(place)];
        }
        if (areThere) {
            return first;
        }
    }
    return 0;
}

void FourierResults::addVariables(int dependent)
{
    Variable const& source = *m_dataSet->variable(dependent);
    m_triples.push_back(m_dataSet->variableCount() + static_cast<int>(m_parts.variables.size()) + 1);
    TransformRecord::ResultVariables result{source.id, {}};
    std::string const names[] = {"Frequency of " + source.name, "Amplitude of " + source.name,
                                 "Phase of " + source.name + " in degrees"};
    for (std::size_t place = 0; place < 3; ++place) {
        m_parts.variables.push_back(std::make_shared<Variable>(freeName(names[place], m_variableNames)));
        result.variables[place] = m_parts.variables.back()->id;
    }
    m_parts.record.variables.push_back(result);
}

/// Number of the latest zone with results of a source zone that these results can replace; 0 for none.
int FourierResults::earlierZone(int source, std::int64_t bins) const
{
    std::vector<TransformRecord::ResultZone> const& known = m_parts.record.zones;
    for (auto result = known.rbegin(); result != known.rend(); ++result) {
        int const number = result->source == m_dataSet->zone(source)->id ? m_dataSet->zoneNumber(result->zone) : 0;
        if (number > 0) {
            Zone const& zone = *m_dataSet->zone(number);
            if (zone.enabled && (zone.i == bins || !hasOtherValues(zone))) {
                return number;
            }
        }
    }
    return 0;
}

/// Whether variables that get no results now have values in a zone.
bool FourierResults::hasOtherValues(Zone const& zone) const
{
    for (std::size_t position = 0; position < zone.fields.size(); ++position) {
        if (!zone.fields[position].isPassive() && m_variables.count(static_cast<int>(position) + 1) == 0) {
            return true;
        }
    }
    return false;
}

void FourierResults::addZone(int source, std::vector<Triple> const& triples,
                             std::vector<AuxiliaryData::Item> const& notes)
{
    std::int64_t const bins = triples.front().front()->size();
    int const earlier = m_places.overZones ? earlierZone(source, bins) : 0;
    if (earlier > 0) {
        fillEarlierZone(earlier, fieldsOf(triples), bins, noted(m_dataSet->zone(earlier)->auxiliaryData, notes));
    } else {
        fillNewZone(source, fieldsOf(triples), bins, noted({}, notes));
    }
}

std::vector<NewField> FourierResults::fieldsOf(std::vector<Triple> const& triples)
{
    std::vector<NewField> fields;
    for (std::size_t dependent = 0; dependent < triples.size(); ++dependent) {
        for (std::size_t place = 0; place < 3; ++place) {
            std::shared_ptr<Buffer> const& values = triples[dependent][place];
            std::shared_ptr<ShareGroup>& group = m_groups[values.get()];
            if (!group) {
                group = std::make_shared<ShareGroup>(values);
            }
            std::size_t const position = static_cast<std::size_t>(m_triples[dependent] - 1) + place;
            fields.push_back({position, Field(group, ValueLocation_Nodal)});
        }
    }
    return fields;
}

void FourierResults::fillNewZone(int source, std::vector<NewField> fields, std::int64_t bins, AuxiliaryData notes)
{
    Zone const& of = *m_dataSet->zone(source);
    auto const zone =
        std::make_shared<Zone>(freeName("Fourier Transform of " + of.name, m_zoneNames), ZoneType_Ordered, bins, 1, 1);
    zone->fields.resize(m_dataSet->variables().size() + m_parts.variables.size());
    zone->auxiliaryData = std::move(notes);
    m_parts.zones.emplace_back(zone, std::move(fields));
    m_parts.record.zones.push_back({of.id, m_parts.zones.back().zone->id});
    m_zones.insert(m_dataSet->zoneCount() + static_cast<int>(m_parts.zones.size()));
}

void FourierResults::fillEarlierZone(int number, std::vector<NewField> fields, std::int64_t bins, AuxiliaryData notes)
{
    std::shared_ptr<Zone> const zone = m_dataSet->zone(number);
    m_parts.states.push_back({zone, bins, std::move(notes)});
    auto const firstNew = std::stable_partition(fields.begin(), fields.end(), [&](NewField const& field) {
        return field.position < m_dataSet->variables().size();
    });
    for (auto field = firstNew; field != fields.end(); ++field) {
        m_parts.newFields.push_back({zone, std::move(*field)});
    }
    fields.erase(firstNew, fields.end());
    if (!fields.empty()) {
        m_parts.replacedZones.insert(number);
        for (NewField const& field : fields) {
            m_parts.replacedVariables.insert(static_cast<int>(field.position) + 1);
        }
        m_parts.replacements.push_back({zone, std::move(fields)});
    }
    m_zones.insert(number);
}

std::shared_ptr<Change> FourierResults::makeChange(EventHub& events)
{
    m_groups.clear(); // they are those of the fields alone
    return std::make_shared<FourierResultsChange>(events, m_dataSet, std::move(m_parts));
}

} // namespace veldraw::kernel

#include "app/import/zones/DataSetOfZones.h"

#include "app/files/PlainText.h"
#include "app/import/zones/AuxiliaryItems.h"

#include <algorithm>
#include <map>
#include <unordered_map>
#include <unordered_set>

namespace veldraw::app {

namespace {

using Positions = std::unordered_map<std::string, std::size_t>; // of variables, by their names

// The order that the files ask for comes first, then first come, first served; a name that no zone has is left out.
std::vector<std::string> variableNames(std::vector<ImportedZone> const& zones)
{
    std::unordered_set<std::string> existing;
    for (ImportedZone const& zone : zones) {
        for (ImportedZone::NamedField const& field : zone.fields)
            existing.insert(field.name);
    }
    std::vector<std::string> names;
    auto const take = [&](std::string const& name) {
        if (existing.erase(name) > 0)
            names.push_back(name);
    };
    for (ImportedZone const& zone : zones) {
        for (std::string const& name : zone.variableNames)
            take(asUtf8(name));
    }
    for (ImportedZone const& zone : zones) {
        for (ImportedZone::NamedField const& field : zone.fields)
            take(field.name);
    }
    return names;
}

// The first zone that has an array decides: a variable belongs to one array, whatever others a later zone has under its name.
void assignArrays(kernel::DataSet const& dataSet, Positions const& positions, ImportedZone const& imported)
{
    for (ImportedZone::NamedField const& field : imported.fields) {
        if (!field.array || field.component != 0)
            continue;
        std::vector<std::shared_ptr<kernel::Variable>> variables;
        for (std::string const& name : field.array->variables)
            variables.push_back(dataSet.variables()[positions.at(name)]);
        bool const areFree = std::all_of(variables.begin(), variables.end(),
                                         [](auto const& variable) { return !variable->sourceArray; });
        for (std::size_t component = 0; areFree && component < variables.size(); ++component) {
            variables[component]->sourceArray = field.array;
            variables[component]->component = static_cast<int>(component);
        }
    }
}

// What the first zone has to say of something holds.
void addNotesTo(kernel::DataSet& dataSet, Positions const& positions, ImportedZone const& imported)
{
    addMissing(dataSet.auxiliaryData(), imported.notesOnDataSet);
    for (auto const& [name, notes] : imported.notesOnVariables) {
        auto const found = positions.find(asUtf8(name));
        if (found != positions.end())
            addMissing(dataSet.variables()[found->second]->auxiliaryData, notes);
    }
}

// The n-th block of each time step belongs to strand n.
void assignStrands(std::vector<ImportedZone>& zones)
{
    std::map<double, int> blocksOfStep;
    for (ImportedZone& imported : zones) {
        if (imported.timeStep && imported.zone->strand == kernel::staticStrand)
            imported.zone->strand = ++blocksOfStep[*imported.timeStep];
    }
}

} // namespace

std::shared_ptr<kernel::DataSet> dataSetOf(std::vector<ImportedZone> zones, std::string const& title)
{
    assignStrands(zones);
    auto dataSet = std::make_shared<kernel::DataSet>(asUtf8(title));
    Positions positions;
    for (std::string const& name : variableNames(zones)) {
        positions.emplace(name, positions.size());
        dataSet->addVariable(std::make_shared<kernel::Variable>(name));
    }
    for (ImportedZone& imported : zones) {
        assignArrays(*dataSet, positions, imported);
        addNotesTo(*dataSet, positions, imported);
        imported.zone->name = asUtf8(imported.zone->name);
        std::vector<kernel::Field> fields(positions.size());
        for (ImportedZone::NamedField& field : imported.fields) {
            std::size_t const position = positions.at(field.name);
            for (std::string const& purpose : field.purposes)
                imported.zone->activeArrays.push_back(
                    {purpose, field.field.location(), dataSet->variables()[position]->id});
            fields[position] = std::move(field.field);
        }
        imported.zone->fields = std::move(fields);
        dataSet->addZone(imported.zone);
    }
    return dataSet;
}

} // namespace veldraw::app

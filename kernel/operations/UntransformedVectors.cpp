#include "kernel/operations/UntransformedVectors.h"

#include "kernel/base/Text.h"
#include "kernel/data/ArrayComponents.h"

#include <algorithm>
#include <map>

namespace veldraw::kernel {

namespace {

/// A vector or a tensor: the one-based numbers of its components, and what the user knows it by.
struct Candidate
{
    std::vector<int> components;
    std::string name;
};

bool isTransformed(Candidate const& candidate, NumberSet const& transformed)
{
    return std::all_of(candidate.components.begin(), candidate.components.end(),
                       [&](int number) { return transformed.count(number) > 0; });
}

/// Whether a component has values, which are no colours, in one of the zones.
bool hasValues(DataSet const& dataSet, NumberSet const& zones, Candidate const& candidate)
{
    return std::any_of(zones.begin(), zones.end(), [&](int zone) {
        return std::any_of(candidate.components.begin(), candidate.components.end(), [&](int number) {
            Field const& field = *dataSet.field(zone, number);
            return !field.isPassive() && field.type() != FieldDataType_Byte;
        });
    });
}

std::string namesOf(DataSet const& dataSet, std::vector<int> const& components)
{
    std::string text;
    for (int const number : components) {
        text += (text.empty() ? "" : ", ") + dataSet.variable(number)->name;
    }
    return text;
}

bool areNamedAsImported(DataSet const& dataSet, ArrayComponents const& array)
{
    return std::equal(
        array.variables.begin(), array.variables.end(), array.array->variables.begin(),
        [&](int number, std::string const& name) { return number != 0 && dataSet.variable(number)->name == name; });
}

/// What is left of an array; no components when it is neither a vector nor a tensor.
Candidate candidateOf(DataSet const& dataSet, ArrayComponents const& array, std::size_t dimensions)
{
    std::size_t const count = array.variables.size();
    if (count != 2 && count != 3 && count != 6 && count != 9) {
        return {};
    }
    Candidate candidate;
    for (std::size_t component = 0; component < count; ++component) {
        bool const counts = count != 3 || component < dimensions;
        if (counts && array.variables[component] != 0) {
            candidate.components.push_back(array.variables[component]);
        }
    }
    candidate.name = areNamedAsImported(dataSet, array) ? array.array->name : namesOf(dataSet, candidate.components);
    return candidate;
}

/// Whether a variable is no component of an array of several.
bool standsAlone(Variable const& variable)
{
    return !variable.sourceArray || variable.sourceArray->variables.size() == 1;
}

bool isCapital(char letter)
{
    return letter >= 'A' && letter <= 'Z';
}

bool isLetter(char letter)
{
    return isCapital(letter) || (letter >= 'a' && letter <= 'z');
}

/// Whether the letter at the start or end of a name is no part of a word: "v_x", "vx" and "velocityX", but not "max".
bool isSetApart(std::string const& name, std::size_t place)
{
    if (name.size() <= 2) {
        return true;
    }
    char const neighbour = name[place == 0 ? 1 : place - 1];
    return !isLetter(neighbour) || isCapital(neighbour) != isCapital(name[place]);
}

/// Number of the variable called as @p name but for another letter at one place, 0 when there is none.
int alike(DataSet const& dataSet, std::string name, std::size_t place, char letter)
{
    name[place] = static_cast<char>(isCapital(name[place]) ? letter - 'a' + 'A' : letter);
    int const number = dataSet.findVariable(name);
    return number != 0 && standsAlone(*dataSet.variable(number)) ? number : 0;
}

/// The variables that are called as if this one were the first component of a vector; none when there are no such. Two
/// are enough where the letters that tell them apart cannot be a part of words.
std::vector<int> componentsByName(DataSet const& dataSet, int first)
{
    Variable const& variable = *dataSet.variable(first);
    std::size_t const end = std::min(variable.name.find_first_of(" [({"), variable.name.size());
    std::string const bare = variable.name.substr(0, end);
    if (!standsAlone(variable) || end == 0) {
        return {};
    }
    std::string const name = lowered(bare);
    bool const isU = name == "u";
    for (std::size_t const place : {end - 1, std::size_t{0}}) {
        if (name[place] != (isU ? 'u' : 'x')) {
            continue;
        }
        int const second = alike(dataSet, variable.name, place, isU ? 'v' : 'y');
        int const third = alike(dataSet, variable.name, place, isU ? 'w' : 'z');
        if (second != 0 && third != 0) {
            return {first, second, third};
        }
        if (second != 0 && isSetApart(bare, place)) {
            return {first, second};
        }
    }
    return {};
}

Candidate candidateByName(DataSet const& dataSet, int first, std::size_t dimensions)
{
    std::vector<int> components = componentsByName(dataSet, first);
    std::string name = namesOf(dataSet, components);
    components.resize(std::min(components.size(), dimensions));
    return {std::move(components), std::move(name)};
}

/// All of them, in the order of their first components.
std::vector<Candidate> candidates(DataSet const& dataSet, std::size_t dimensions)
{
    std::map<int, Candidate> byFirst;
    for (ArrayComponents const& array : componentsByArray(dataSet)) {
        Candidate candidate = candidateOf(dataSet, array, dimensions);
        if (!candidate.components.empty()) {
            byFirst[candidate.components.front()] = std::move(candidate);
        }
    }
    for (int first = 1; first <= dataSet.variableCount(); ++first) {
        Candidate candidate = candidateByName(dataSet, first, dimensions);
        if (!candidate.components.empty()) {
            byFirst[first] = std::move(candidate);
        }
    }
    std::vector<Candidate> result;
    for (auto& [first, candidate] : byFirst) {
        result.push_back(std::move(candidate));
    }
    return result;
}

} // namespace

std::vector<std::string> untransformedVectors(DataSet const& dataSet, NumberSet const& zones,
                                              NumberSet const& transformed, std::size_t dimensions)
{
    std::vector<std::string> names;
    for (Candidate const& candidate : candidates(dataSet, dimensions)) {
        if (!isTransformed(candidate, transformed) && hasValues(dataSet, zones, candidate)) {
            names.push_back(candidate.name);
        }
    }
    return names;
}

std::string remarkOnUntransformedVectors(std::string const& operation, DataSet const& dataSet, NumberSet const& zones,
                                         NumberSet const& transformed, std::size_t dimensions)
{
    std::string list;
    for (std::string const& name : untransformedVectors(dataSet, zones, transformed, dimensions)) {
        list += (list.empty() ? "\"" : ", \"") + name + "\"";
    }
    return list.empty() ? list
                        : operation + ": vectors and tensors that were left as they are: " + list +
                              ". Only the frame's vector is transformed.";
}

} // namespace veldraw::kernel

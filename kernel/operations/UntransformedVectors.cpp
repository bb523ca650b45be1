#include "kernel/operations/UntransformedVectors.h"

#include "kernel/base/Text.h"

#include <algorithm>

namespace veldraw::kernel {

namespace {

using Components = std::vector<int>; // one-based numbers

bool isTransformed(Components const& components, NumberSet const& transformed, std::size_t dimensions)
{
    auto const last =
        components.size() == 3 ? components.begin() + static_cast<std::ptrdiff_t>(dimensions) : components.end();
    return std::all_of(components.begin(), last, [&](int number) { return transformed.count(number) > 0; });
}

/// Whether all components have values, which are no colours, in one of the zones.
bool hasValues(DataSet const& dataSet, NumberSet const& zones, Components const& components)
{
    return std::any_of(zones.begin(), zones.end(), [&](int zone) {
        return std::all_of(components.begin(), components.end(), [&](int number) {
            Field const& field = *dataSet.field(zone, number);
            return !field.isPassive() && field.type() != FieldDataType_Byte;
        });
    });
}

/// The components of the array that starts with this variable; none when it does not, or has not kept its names.
Components arrayFrom(DataSet const& dataSet, int first)
{
    Variable const& variable = *dataSet.variable(first);
    if (!variable.sourceArray || variable.component != 0) {
        return {};
    }
    Components components;
    for (std::string const& name : variable.sourceArray->variables) {
        components.push_back(dataSet.findVariable(name));
    }
    std::size_t const count = components.size();
    bool const isWhole = std::count(components.begin(), components.end(), 0) == 0;
    return isWhole && (count == 3 || count == 6 || count == 9) ? components : Components();
}

/// Number of the variable called as @p name but for another letter at one place, 0 when there is none.
int alike(DataSet const& dataSet, std::string name, std::size_t place, char letter)
{
    bool const isCapital = name[place] >= 'A' && name[place] <= 'Z';
    name[place] = static_cast<char>(isCapital ? letter - 'a' + 'A' : letter);
    int const number = dataSet.findVariable(name);
    return number != 0 && !dataSet.variable(number)->sourceArray ? number : 0;
}

/// The variables that are called as if this one were the first component of a vector; none when there are no such.
Components triadFrom(DataSet const& dataSet, int first)
{
    Variable const& variable = *dataSet.variable(first);
    std::string const name = lowered(variable.name);
    std::size_t const end = std::min(name.find_first_of(" [({"), name.size());
    if (variable.sourceArray || end == 0) {
        return {};
    }
    bool const isU = end == 1 && name[0] == 'u';
    for (std::size_t const place : {end - 1, std::size_t{0}}) {
        if (name[place] != (isU ? 'u' : 'x')) {
            continue;
        }
        int const second = alike(dataSet, variable.name, place, isU ? 'v' : 'y');
        int const third = alike(dataSet, variable.name, place, isU ? 'w' : 'z');
        if (second != 0 && third != 0) {
            return {first, second, third};
        }
    }
    return {};
}

std::string namesOf(DataSet const& dataSet, Components const& components)
{
    std::string text;
    for (int const number : components) {
        text += (text.empty() ? "" : ", ") + dataSet.variable(number)->name;
    }
    return text;
}

} // namespace

std::vector<std::string> untransformedVectors(DataSet const& dataSet, NumberSet const& zones,
                                              NumberSet const& transformed, std::size_t dimensions)
{
    std::vector<std::string> names;
    for (int first = 1; first <= dataSet.variableCount(); ++first) {
        Components const array = arrayFrom(dataSet, first);
        Components const components = array.empty() ? triadFrom(dataSet, first) : array;
        if (!components.empty() && !isTransformed(components, transformed, dimensions) &&
            hasValues(dataSet, zones, components)) {
            names.push_back(array.empty() ? namesOf(dataSet, components) : dataSet.variable(first)->sourceArray->name);
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

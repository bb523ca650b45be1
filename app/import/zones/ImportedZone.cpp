#include "app/import/zones/ImportedZone.h"

#include "app/files/PlainText.h"

namespace veldraw::app {

void ImportedZone::addField(std::string const& name, kernel::Field field)
{
    std::string const wanted = name.empty() ? "Variable" : asUtf8(name);
    auto const [taken, isFree] = takenNames.try_emplace(wanted, 1);
    int& last = taken->second; // stays where it is when others are added
    std::string unique = wanted;
    for (bool found = isFree; !found; found = takenNames.try_emplace(unique, 1).second)
        unique = wanted + " (" + std::to_string(++last) + ")";
    fields.push_back({unique, std::move(field), nullptr, 0, {}});
}

void ImportedZone::addArray(std::string const& name, std::vector<kernel::Field> components,
                            std::vector<std::string> const& variables, std::vector<std::string> const& componentNames,
                            std::vector<std::string> purposes)
{
    auto const array = std::make_shared<kernel::SourceArray>();
    array->name = asUtf8(name);
    for (std::string const& text : componentNames)
        array->componentNames.push_back(asUtf8(text));
    int const count = static_cast<int>(components.size());
    for (int component = 0; component < count; ++component) {
        auto const n = static_cast<std::size_t>(component);
        addField(variables.size() == components.size() ? variables[n] : componentName(name, component, count),
                 std::move(components[n]));
        array->variables.push_back(fields.back().name);
    }
    if (count > 0)
        fields[fields.size() - static_cast<std::size_t>(count)].purposes = std::move(purposes);
    bool const isItself = count == 1 && array->variables.front() == array->name && array->componentNames.empty();
    for (int component = 0; component < count && !name.empty() && !isItself; ++component) {
        NamedField& field = fields[fields.size() - components.size() + static_cast<std::size_t>(component)];
        field.array = array;
        field.component = component;
    }
}

std::string componentName(std::string const& name, int component, int count)
{
    if (count == 1)
        return name;
    if (count > 3)
        return name + "_" + std::to_string(component + 1);
    return name + "_" + "XYZ"[component];
}

} // namespace veldraw::app

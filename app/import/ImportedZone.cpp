#include "app/import/ImportedZone.h"

#include <algorithm>

namespace veldraw::app {

void ImportedZone::addField(std::string const& name, kernel::Field field)
{
    std::string const wanted = name.empty() ? "Variable" : name;
    auto const isTaken = [this](std::string const& text) {
        return std::any_of(fields.begin(), fields.end(),
                           [&text](NamedField const& other) { return other.name == text; });
    };
    std::string unique = wanted;
    for (int n = 2; isTaken(unique); ++n)
        unique = wanted + " (" + std::to_string(n) + ")";
    fields.push_back({unique, std::move(field)});
}

} // namespace veldraw::app

#include "operations/Registry.h"

#include "operations/Suggestion.h"

#include <algorithm>
#include <stdexcept>

namespace veldraw::operations {

namespace {

std::string padded(std::string text, std::size_t width)
{
    text.resize(std::max(text.size() + 2, width), ' ');
    return text;
}

constexpr char thingsText[] =
    "\nZones and variables are given by numbers (3), ranges (1:9, or 1:9:2 with a step), names (p, or \"a, b\" in "
    "quotes), or\npatterns (wing*), with commas between them; * is all.\n";

std::string limitsOf(Parameter const& parameter)
{
    std::string text = parameter.kindText();
    if (!parameter.unit.empty())
        text += ", in " + parameter.unit;
    if (std::string const limits = parameter.limitsText(); !limits.empty())
        text += ", " + limits;
    return text;
}

} // namespace

void Registry::add(OperationEntry entry)
{
    if (find(entry.name) != nullptr)
        throw std::logic_error("The operation \"" + entry.name + "\" is there already.");
    m_entries.push_back(std::move(entry));
}

OperationEntry const* Registry::find(std::string const& name) const
{
    auto const found = std::find_if(m_entries.begin(), m_entries.end(),
                                    [&](OperationEntry const& entry) { return entry.name == name; });
    return found == m_entries.end() ? nullptr : &*found;
}

OperationEntry const& Registry::entryOf(Command const& command) const
{
    if (OperationEntry const* const entry = find(command.name))
        return *entry;
    std::vector<std::string> names;
    for (OperationEntry const& entry : m_entries)
        names.push_back(entry.name);
    throw CommandError("There is no operation \"" + command.name + "\"." + suggestion(command.name, names),
                       command.place);
}

std::string Registry::listText() const
{
    constexpr std::size_t width = 34;
    std::string text;
    for (OperationEntry const& entry : m_entries)
        text += padded(entry.name, width) + entry.sentence + '\n';
    return text;
}

std::string helpText(OperationEntry const& entry)
{
    constexpr std::size_t width = 24;
    std::string text = entry.name;
    for (Parameter const& parameter : entry.parameters)
        text += parameter.isRequired ? ' ' + parameter.name + "=..." : " [" + parameter.name + "=...]";
    text += "\n\n" + entry.sentence + '\n';
    if (!entry.parameters.empty())
        text += '\n';
    bool hasThings = false;
    for (Parameter const& parameter : entry.parameters) {
        text += "  " + padded(parameter.name, width) + parameter.sentence + '\n';
        text += "  " + std::string(width, ' ') + "Takes " + limitsOf(parameter);
        text += parameter.startValue.empty() ? ".\n" : "; otherwise " + parameter.startValue + ".\n";
        hasThings = hasThings || parameter.kind <= ParameterKind::Variable;
    }
    return hasThings ? text + thingsText : text;
}

} // namespace veldraw::operations

#include "operations/BlankingText.h"

#include "kernel/data/DataSet.h"
#include "operations/Suggestion.h"

#include <algorithm>
#include <charconv>
#include <stdexcept>

namespace veldraw::operations {

namespace {

std::string trimmed(std::string const& text)
{
    constexpr char blanks[] = " \t\r\n";
    std::size_t const first = text.find_first_not_of(blanks);
    return first == std::string::npos ? std::string() : text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

template <typename Number>
bool readWhole(std::string const& text, Number& number)
{
    auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size();
}

/// By its number, as everywhere in commands, or else by its name.
int variableOf(std::string const& text, kernel::DataSet const& dataSet)
{
    int number = 0;
    if (readWhole(text, number) && dataSet.variable(number))
        return number;
    if (int const named = dataSet.findVariable(text); named > 0)
        return named;
    std::vector<std::string> names;
    for (auto const& variable : dataSet.variables())
        names.push_back(variable->name);
    throw std::runtime_error("There is no variable \"" + text + "\"." + suggestion(text, names));
}

kernel::BlankingConstraint constraintOf(std::string const& text, kernel::DataSet const& dataSet)
{
    std::size_t const sign = text.find_last_of("<>");
    if (sign == std::string::npos)
        throw std::runtime_error("\"" + text +
                                 "\" is no constraint: a variable, < or >, and a limit, such as T < 300.");
    kernel::BlankingConstraint constraint;
    constraint.isAbove = text[sign] == '>';
    constraint.variable = dataSet.variable(variableOf(trimmed(text.substr(0, sign)), dataSet))->id;
    std::string limit = trimmed(text.substr(sign + 1));
    std::size_t const blank = limit.find_first_of(" \t");
    constraint.isActive = blank == std::string::npos || trimmed(limit.substr(blank)) != "off";
    if (!constraint.isActive)
        limit.resize(blank);
    if (!readWhole(limit, constraint.limit))
        throw std::runtime_error("\"" + limit + "\" is no limit of a constraint: a number is wanted.");
    return constraint;
}

} // namespace

std::vector<kernel::BlankingConstraint> constraintsOf(std::string const& text, kernel::DataSet const& dataSet)
{
    std::vector<kernel::BlankingConstraint> constraints;
    if (trimmed(text).empty())
        return constraints;
    for (std::size_t first = 0; first <= text.size();) {
        std::size_t const end = std::min(text.find(';', first), text.size());
        constraints.push_back(constraintOf(trimmed(text.substr(first, end - first)), dataSet));
        first = end + 1;
    }
    return constraints;
}

} // namespace veldraw::operations

#include "operations/NumberList.h"

#include "kernel/data/DataSet.h"
#include "operations/Suggestion.h"

#include <algorithm>
#include <charconv>

namespace veldraw::operations {

namespace {

/// Zones, or variables, of a data set.
class Things
{
public:
    Things(kernel::DataSet const& dataSet, ParameterKind kind)
        : m_dataSet(dataSet)
        , m_areZones(kind == ParameterKind::Zones || kind == ParameterKind::Zone)
    {
    }

    std::string word() const { return m_areZones ? "zone" : "variable"; }
    int count() const { return m_areZones ? m_dataSet.zoneCount() : m_dataSet.variableCount(); }

    std::string const& name(int number) const
    {
        return m_areZones ? m_dataSet.zone(number)->name : m_dataSet.variable(number)->name;
    }

    std::vector<std::string> names() const
    {
        std::vector<std::string> all;
        for (int number = 1; number <= count(); ++number)
            all.push_back(name(number));
        return all;
    }

private:
    kernel::DataSet const& m_dataSet;
    bool m_areZones;
};

/// First, last and step of numbers.
struct Range
{
    int first = 0;
    int last = 0;
    int step = 1;
};

std::optional<int> positive(char const* first, char const* last)
{
    int number = 0;
    auto const [end, error] = std::from_chars(first, last, number);
    return error == std::errc() && end == last && number > 0 ? std::optional<int>(number) : std::nullopt;
}

/// Nothing for a text that is neither a number nor a range of numbers.
std::optional<Range> rangeIn(std::string const& text)
{
    std::vector<int> numbers;
    char const* at = text.data();
    char const* const end = text.data() + text.size();
    while (true) {
        char const* const colon = std::find(at, end, ':');
        auto const number = positive(at, colon);
        if (!number)
            return std::nullopt;
        numbers.push_back(*number);
        if (colon == end)
            break;
        at = colon + 1;
    }
    if (numbers.size() > 3)
        return std::nullopt;
    Range range{numbers[0], numbers[0], 1};
    if (numbers.size() > 1)
        range.last = numbers[1];
    if (numbers.size() > 2)
        range.step = numbers[2];
    return range;
}

/// Whether a name fits a pattern, in which * stands for any letters.
bool fits(std::string const& name, std::string const& pattern)
{
    std::size_t inName = 0;
    std::size_t inPattern = 0;
    std::size_t star = std::string::npos;
    std::size_t afterStar = 0;
    while (inName < name.size()) {
        if (inPattern < pattern.size() && pattern[inPattern] == '*') {
            star = inPattern++;
            afterStar = inName;
        } else if (inPattern < pattern.size() && pattern[inPattern] == name[inName]) {
            ++inPattern;
            ++inName;
        } else if (star != std::string::npos) {
            inPattern = star + 1;
            inName = ++afterStar;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', inPattern) == std::string::npos;
}

void insertRange(std::vector<int>& numbers, Range const& range, Things const& things, TextPlace place)
{
    int const highest = std::max(range.first, range.last);
    if (highest > things.count()) {
        throw CommandError("There is no " + things.word() + ' ' + std::to_string(highest) + "; the last one is " +
                               std::to_string(things.count()) + '.',
                           place);
    }
    if (range.first > range.last)
        throw CommandError("A range goes upwards.", place);
    for (long long number = range.first; number <= range.last; number += range.step)
        numbers.push_back(static_cast<int>(number));
}

void insertNamed(std::vector<int>& numbers, ValuePart const& part, Things const& things)
{
    std::size_t const before = numbers.size();
    for (int number = 1; number <= things.count(); ++number)
        if (part.isQuoted ? things.name(number) == part.text : fits(things.name(number), part.text))
            numbers.push_back(number);
    if (numbers.size() == before) {
        throw CommandError("There is no " + things.word() + " called \"" + part.text + "\"." +
                               suggestion(part.text, things.names()),
                           part.place);
    }
}

void requireForm(Parameter const& parameter, ValuePart const& part)
{
    if (part.text.empty())
        throw CommandError("\"" + parameter.name + "\" takes " + parameter.kindText() +
                               ": a number or a name is missing.",
                           part.place);
}

long long oneOf(std::vector<int> const& numbers, Parameter const& parameter, CommandArgument const& argument)
{
    if (numbers.size() == 1)
        return numbers.front();
    throw CommandError("\"" + parameter.name + "\" takes " + parameter.kindText() + ", but " +
                           std::to_string(numbers.size()) + " are meant by \"" + argument.text() +
                           "\"; give its number.",
                       argument.parts.front().place);
}

} // namespace

std::optional<Arguments::Value> numbersOf(Parameter const& parameter, CommandArgument const& argument,
                                          kernel::DataSet const* dataSet)
{
    for (ValuePart const& part : argument.parts)
        requireForm(parameter, part);
    if (dataSet == nullptr)
        return std::nullopt;
    Things const things(*dataSet, parameter.kind);
    std::vector<int> numbers;
    for (ValuePart const& part : argument.parts) {
        std::optional<Range> const range = part.isQuoted ? std::nullopt : rangeIn(part.text);
        if (range)
            insertRange(numbers, *range, things, part.place);
        else
            insertNamed(numbers, part, things);
    }
    if (parameter.kind == ParameterKind::Zone || parameter.kind == ParameterKind::Variable)
        return oneOf(numbers, parameter, argument);
    return kernel::NumberSet(numbers.begin(), numbers.end());
}

Arguments::Value plainNumbersOf(Parameter const& parameter, CommandArgument const& argument)
{
    constexpr int most = 1000000;
    std::vector<int> numbers;
    for (ValuePart const& part : argument.parts) {
        requireForm(parameter, part);
        std::optional<Range> const range = part.isQuoted ? std::nullopt : rangeIn(part.text);
        if (!range || range->last > most || range->first > range->last)
            throw CommandError("\"" + parameter.name + "\" takes " + parameter.kindText() + ", not \"" + part.text +
                                   "\".",
                               part.place);
        for (int number = range->first; number <= range->last; number += std::min(range->step, most))
            numbers.push_back(number);
    }
    return kernel::NumberSet(numbers.begin(), numbers.end());
}

} // namespace veldraw::operations

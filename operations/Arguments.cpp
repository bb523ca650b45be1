#include "operations/Arguments.h"

#include "kernel/base/Text.h"
#include "operations/NumberList.h"
#include "operations/Suggestion.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace veldraw::operations {

namespace {

using Value = Arguments::Value;

/// A number that the whole text is; with a decimal point, whatever the locale.
template <typename Number>
std::optional<Number> numberIn(std::string const& text)
{
    Number number{};
    char const* const first = text.data() + (text.size() > 1 && text.front() == '+' && text[1] != '-' ? 1 : 0);
    char const* const last = text.data() + text.size();
    auto const [end, error] = std::from_chars(first, last, number);
    return error == std::errc() && end == last ? std::optional<Number>(number) : std::nullopt;
}

std::string is(Parameter const& parameter, std::string const& what)
{
    return "\"" + parameter.name + "\" takes " + what;
}

[[noreturn]] void refuseKind(Parameter const& parameter, CommandArgument const& argument)
{
    throw CommandError(is(parameter, parameter.kindText()) + ", not \"" + argument.text() + "\".",
                       argument.parts.front().place);
}

void requireWithinLimits(Parameter const& parameter, double number, TextPlace place)
{
    bool const isLow = parameter.isLeastExcluded ? !(number > parameter.least) : !(number >= parameter.least);
    if (isLow || !(number <= parameter.most))
        throw CommandError(
            is(parameter, "a number ") + parameter.limitsText() + ", not " + kernel::textOf(number) + ".", place);
}

Value wholeOf(Parameter const& parameter, CommandArgument const& argument)
{
    auto const number = numberIn<long long>(argument.text());
    if (!number)
        refuseKind(parameter, argument);
    requireWithinLimits(parameter, static_cast<double>(*number), argument.parts.front().place);
    return *number;
}

double realOf(Parameter const& parameter, CommandArgument const& argument, ValuePart const& part)
{
    auto const number = numberIn<double>(part.text);
    if (!number || !std::isfinite(*number))
        refuseKind(parameter, argument);
    requireWithinLimits(parameter, *number, part.place);
    return *number;
}

Value tripleOf(Parameter const& parameter, CommandArgument const& argument)
{
    Arguments::Triple triple{};
    std::string const letter = argument.text();
    if (parameter.kind == ParameterKind::Direction && (letter == "X" || letter == "Y" || letter == "Z")) {
        triple[static_cast<std::size_t>(letter[0] - 'X')] = 1.0;
        return triple;
    }
    if (argument.parts.size() != triple.size())
        refuseKind(parameter, argument);
    for (std::size_t part = 0; part < triple.size(); ++part)
        triple[part] = realOf(parameter, argument, argument.parts[part]);
    return triple;
}

Value choiceOf(Parameter const& parameter, CommandArgument const& argument)
{
    auto const found = std::find(parameter.words.begin(), parameter.words.end(), argument.text());
    if (found == parameter.words.end()) {
        throw CommandError(is(parameter, parameter.kindText()) + ", not \"" + argument.text() + "\"." +
                               suggestion(argument.text(), parameter.words),
                           argument.parts.front().place);
    }
    return static_cast<long long>(found - parameter.words.begin());
}

Value flagOf(Parameter const& parameter, CommandArgument const& argument)
{
    std::string const word = argument.text();
    if (word != "yes" && word != "no")
        refuseKind(parameter, argument);
    return word == "yes";
}

Value textOf(Parameter const& parameter, CommandArgument const& argument)
{
    std::string const text = argument.text();
    if (parameter.kind == ParameterKind::File && text.empty())
        throw CommandError(is(parameter, "the name of a file."), argument.parts.front().place);
    return text;
}

Value filesOf(Parameter const& parameter, CommandArgument const& argument)
{
    Arguments::Texts files;
    for (ValuePart const& part : argument.parts) {
        if (part.text.empty())
            throw CommandError(is(parameter, "names of files: one is missing."), part.place);
        files.push_back(part.text);
    }
    return files;
}

/// The value, none where it is about data that are not there.
std::optional<Value> valueOf(Parameter const& parameter, CommandArgument const& argument,
                             kernel::DataSet const* dataSet)
{
    switch (parameter.kind) {
    case ParameterKind::Zones:
    case ParameterKind::Zone:
    case ParameterKind::Variables:
    case ParameterKind::Variable:
        return numbersOf(parameter, argument, dataSet);
    case ParameterKind::Numbers:
        return plainNumbersOf(parameter, argument);
    case ParameterKind::Whole:
        return wholeOf(parameter, argument);
    case ParameterKind::Real:
        if (argument.parts.size() != 1)
            refuseKind(parameter, argument);
        return realOf(parameter, argument, argument.parts.front());
    case ParameterKind::Place:
    case ParameterKind::Direction:
        return tripleOf(parameter, argument);
    case ParameterKind::Choice:
        return choiceOf(parameter, argument);
    case ParameterKind::Flag:
        return flagOf(parameter, argument);
    case ParameterKind::Files:
        return filesOf(parameter, argument);
    case ParameterKind::Text:
    case ParameterKind::File:
        return textOf(parameter, argument);
    }
    return std::nullopt;
}

void refuseUnknown(std::vector<Parameter> const& parameters, Command const& command)
{
    std::vector<std::string> names;
    for (Parameter const& parameter : parameters)
        names.push_back(parameter.name);
    for (CommandArgument const& argument : command.arguments)
        if (std::find(names.begin(), names.end(), argument.name) == names.end())
            throw CommandError("\"" + command.name + "\" has no parameter \"" + argument.name + "\"." +
                                   suggestion(argument.name, names),
                               argument.place);
}

} // namespace

Arguments readArguments(std::vector<Parameter> const& parameters, Command const& command,
                        kernel::DataSet const* dataSet)
{
    refuseUnknown(parameters, command);
    Arguments values;
    for (Parameter const& parameter : parameters) {
        CommandArgument const* argument = command.find(parameter.name);
        CommandArgument start;
        if (argument == nullptr && !parameter.startValue.empty()) {
            start = readCommand("start " + parameter.name + '=' + parameter.startValue)->arguments.front();
            argument = &start;
        }
        if (argument == nullptr && parameter.isRequired)
            throw CommandError("\"" + command.name + "\" needs " + parameter.name + "=...: " + parameter.sentence,
                               command.place);
        if (argument == nullptr)
            continue;
        if (auto value = valueOf(parameter, *argument, dataSet))
            values.set(parameter.name, std::move(*value));
    }
    return values;
}

} // namespace veldraw::operations

#include "operations/Parameter.h"

#include "kernel/base/Text.h"

#include <cmath>
#include <utility>

namespace veldraw::operations {

namespace {

std::string wordsText(std::vector<std::string> const& words)
{
    std::string text;
    for (std::size_t word = 0; word < words.size(); ++word) {
        if (word > 0)
            text += word + 1 == words.size() ? " or " : ", ";
        text += words[word];
    }
    return text;
}

} // namespace

Parameter& Parameter::startingWith(std::string text)
{
    isRequired = false;
    startValue = std::move(text);
    return *this;
}

Parameter& Parameter::in(std::string unitOfIt)
{
    unit = std::move(unitOfIt);
    return *this;
}

Parameter& Parameter::within(double leastOfIt, double mostOfIt)
{
    least = leastOfIt;
    most = mostOfIt;
    return *this;
}

Parameter& Parameter::above(double leastOfIt, double mostOfIt)
{
    isLeastExcluded = true;
    return within(leastOfIt, mostOfIt);
}

std::string Parameter::kindText() const
{
    switch (kind) {
    case ParameterKind::Zones:
        return "zones";
    case ParameterKind::Zone:
        return "a zone";
    case ParameterKind::Variables:
        return "variables";
    case ParameterKind::Variable:
        return "a variable";
    case ParameterKind::Numbers:
        return "numbers, or ranges of them";
    case ParameterKind::Whole:
        return "a whole number";
    case ParameterKind::Real:
        return "a number";
    case ParameterKind::Place:
        return "three numbers";
    case ParameterKind::Direction:
        return "three numbers, or X, Y or Z";
    case ParameterKind::Choice:
        return wordsText(words);
    case ParameterKind::Flag:
        return "yes or no";
    case ParameterKind::Text:
        return "a text";
    case ParameterKind::Files:
        return "files";
    case ParameterKind::File:
        return "a file";
    }
    return {};
}

std::string Parameter::limitsText() const
{
    std::string text;
    if (std::isfinite(least))
        text = (isLeastExcluded ? "above " : "at least ") + kernel::textOf(least);
    if (std::isfinite(most))
        text += (text.empty() ? "at most " : ", at most ") + kernel::textOf(most);
    return text;
}

Parameter parameter(std::string name, ParameterKind kind, std::string sentence)
{
    Parameter made;
    made.name = std::move(name);
    made.kind = kind;
    made.sentence = std::move(sentence);
    return made;
}

Parameter choice(std::string name, std::vector<std::string> words, std::string sentence)
{
    Parameter made = parameter(std::move(name), ParameterKind::Choice, std::move(sentence));
    made.words = std::move(words);
    return made;
}

} // namespace veldraw::operations

#pragma once

#include <limits>
#include <string>
#include <vector>

namespace veldraw::operations {

/// What a parameter takes.
enum class ParameterKind
{
    Zones,     ///< numbers, ranges, names
    Zone,      ///< one of them
    Variables, ///< as zones
    Variable,
    Numbers,   ///< numbers and ranges of them
    Whole,     ///< a whole number
    Real,      ///< a number
    Place,     ///< three numbers
    Direction, ///< three numbers, or X, Y or Z
    Choice,    ///< one of some words
    Flag,      ///< yes or no
    Text,
    Files, ///< several of the following
    File   ///< a path, from the folder of the script or the program's
};

/// A parameter of an operation: all that the help, the check of a command, and other languages have to know of it.
struct Parameter
{
    std::string name;
    ParameterKind kind = ParameterKind::Text;
    std::string sentence;   ///< what it is; ends with a full stop
    bool isRequired = true; ///< otherwise one that is not given has its start value
    std::string startValue; ///< as it would be written; empty where the sentence says what stands for it
    std::string unit;       ///< empty for none
    double least = -std::numeric_limits<double>::infinity();
    double most = std::numeric_limits<double>::infinity();
    bool isLeastExcluded = false;   ///< the value has to be above the least one
    std::vector<std::string> words; ///< of a choice

    Parameter& startingWith(std::string text);
    Parameter& in(std::string unitOfIt);
    Parameter& within(double least, double most);
    Parameter& above(double least, double most = std::numeric_limits<double>::infinity());

    /// What it takes, in words for the help: "numbers, ranges or names of zones".
    std::string kindText() const;

    /// Its limits in words, empty where there are none: "at least 1".
    std::string limitsText() const;
};

Parameter parameter(std::string name, ParameterKind kind, std::string sentence);
Parameter choice(std::string name, std::vector<std::string> words, std::string sentence);

} // namespace veldraw::operations

#include "python/PythonNames.h"

#include "python/ProgramSession.h"

#include <algorithm>

namespace veldraw::python {

namespace {

using operations::OperationEntry;
using operations::Parameter;
using operations::ParameterKind;

std::string quotedText(std::string const& text)
{
    return '\'' + text + '\'';
}

/// What stands for the start value of a parameter in a signature.
std::string startOf(Parameter const& parameter)
{
    if (parameter.startValue.empty())
        return "None";
    switch (parameter.kind) {
    case ParameterKind::Whole:
        return parameter.startValue;
    case ParameterKind::Real:
        return parameter.startValue.find_first_of(".e") == std::string::npos ? parameter.startValue + ".0"
                                                                             : parameter.startValue;
    case ParameterKind::Flag:
        return parameter.startValue == "yes" ? "True" : "False";
    case ParameterKind::Place:
        return '(' + parameter.startValue + ')';
    default:
        return quotedText(parameter.startValue);
    }
}

std::string signatureOf(OperationEntry const& entry)
{
    std::string text = pythonName(entry.name) + '(';
    if (!entry.parameters.empty())
        text += '*';
    for (bool const isRequired : {true, false})
        for (Parameter const& parameter : entry.parameters)
            if (parameter.isRequired == isRequired)
                text += ", " + pythonName(parameter.name) + (isRequired ? "" : "=" + startOf(parameter));
    return text + ')';
}

std::string kindOf(Parameter const& parameter)
{
    if (parameter.kind == ParameterKind::Flag)
        return "True or False";
    std::string text = parameter.kindText();
    if (!parameter.unit.empty())
        text += ", in " + parameter.unit;
    if (std::string const limits = parameter.limitsText(); !limits.empty())
        text += ", " + limits;
    return text;
}

void replaceAll(std::string& text, std::string const& what, std::string const& by)
{
    for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + by.size()))
        text.replace(at, what.size(), by);
}

/// Whether the module has functions of its own for it, or the program alone can do it.
bool standsApart(OperationEntry const& entry)
{
    static std::vector<std::string> const names{"open", "save", "save-picture", "run"};
    return std::find(names.begin(), names.end(), entry.name) != names.end();
}

} // namespace

std::string pythonName(std::string name)
{
    std::replace(name.begin(), name.end(), '-', '_');
    return name == "from" ? "from_" : name; // which is a word of the language
}

std::string inPythonNames(std::string message, OperationEntry const* entry)
{
    auto const rename = [&message](std::string const& name) {
        replaceAll(message, '"' + name + '"', '"' + pythonName(name) + '"');
        replaceAll(message, ' ' + name + "=...", ' ' + pythonName(name) + "=...");
    };
    if (entry == nullptr)
        return message;
    rename(entry->name);
    for (Parameter const& parameter : entry->parameters)
        rename(parameter.name);
    return message;
}

std::vector<OperationEntry> operationsOfModule()
{
    std::vector<OperationEntry> entries = registry().entries();
    entries.erase(std::remove_if(entries.begin(), entries.end(), standsApart), entries.end());
    return entries;
}

std::string documentationOf(OperationEntry const& entry)
{
    std::string text = signatureOf(entry) + "\n--\n\n" + entry.sentence + '\n';
    if (!entry.parameters.empty())
        text += '\n';
    for (Parameter const& parameter : entry.parameters)
        text += pythonName(parameter.name) + ": " + kindOf(parameter) + ". " + parameter.sentence + '\n';
    return text;
}

} // namespace veldraw::python

#include "python/ArgumentText.h"

#include "kernel/session/Session.h"
#include "python/Failure.h"
#include "python/ProgramSession.h"
#include "python/PythonNames.h"
#include "python/ThingHandle.h"

namespace py = pybind11;

namespace veldraw::python {

namespace {

using operations::Parameter;
using operations::ParameterKind;
using operations::ValuePart;

[[noreturn]] void refuse(Parameter const& parameter, py::handle value)
{
    throw py::type_error('"' + pythonName(parameter.name) + "\" takes " + parameter.kindText() + ", not " +
                         py::repr(value).cast<std::string>());
}

bool isText(py::handle value)
{
    return PyUnicode_Check(value.ptr()) != 0;
}

bool isWhole(py::handle value)
{
    return PyBool_Check(value.ptr()) == 0 && PyIndex_Check(value.ptr()) != 0;
}

std::string wholeText(py::handle value)
{
    auto const number = py::reinterpret_steal<py::object>(PyNumber_Index(value.ptr()));
    if (!number)
        throw py::error_already_set();
    return py::str(number).cast<std::string>();
}

/// The texts between the commas of a text; what stands in quotes has commas of its own.
std::vector<ValuePart> partsOf(std::string const& text)
{
    std::vector<ValuePart> parts(1);
    bool isInQuotes = false;
    for (char const letter : text) {
        if (letter == '"') {
            isInQuotes = !isInQuotes;
            parts.back().isQuoted = true;
        } else if (letter == ',' && !isInQuotes) {
            parts.emplace_back();
        } else {
            parts.back().text += letter;
        }
    }
    return parts;
}

template <typename Handle>
std::string numberInActive(Handle const& thing)
{
    if (thing.dataSet() != session().activeDataSet())
        throw Failure(thing.description() + " is not of the active data set.");
    return std::to_string(thing.number());
}

/// A zone, a variable or a number; several in a text.
void addThings(std::vector<ValuePart>& parts, Parameter const& parameter, py::handle value)
{
    bool const areZones = parameter.kind == ParameterKind::Zone || parameter.kind == ParameterKind::Zones;
    bool const areNumbers = parameter.kind == ParameterKind::Numbers;
    if (isText(value))
        for (ValuePart& part : partsOf(value.cast<std::string>()))
            parts.push_back(std::move(part));
    else if (isWhole(value))
        parts.push_back({wholeText(value), false, {}});
    else if (areZones && py::isinstance<ZoneHandle>(value))
        parts.push_back({numberInActive(value.cast<ZoneHandle const&>()), false, {}});
    else if (!areZones && !areNumbers && py::isinstance<VariableHandle>(value))
        parts.push_back({numberInActive(value.cast<VariableHandle const&>()), false, {}});
    else
        refuse(parameter, value);
}

std::vector<ValuePart> thingsOf(Parameter const& parameter, py::handle value)
{
    std::vector<ValuePart> parts;
    bool const isOne =
        isText(value) || isWhole(value) || py::isinstance<ZoneHandle>(value) || py::isinstance<VariableHandle>(value);
    if (isOne) {
        addThings(parts, parameter, value);
    } else if (PySequence_Check(value.ptr()) != 0 || PyIter_Check(value.ptr()) != 0 ||
               PyAnySet_Check(value.ptr()) != 0) {
        for (py::handle const each : py::reinterpret_borrow<py::iterable>(value))
            addThings(parts, parameter, each);
        if (parts.empty())
            parts.emplace_back();
    } else {
        refuse(parameter, value);
    }
    return parts;
}

std::vector<ValuePart> realsOf(Parameter const& parameter, py::handle value)
{
    std::vector<ValuePart> parts;
    if (parameter.kind == ParameterKind::Direction && isText(value))
        return {{value.cast<std::string>(), true, {}}};
    if (isText(value) || PySequence_Check(value.ptr()) == 0)
        refuse(parameter, value);
    for (py::handle const each : py::reinterpret_borrow<py::iterable>(value))
        parts.push_back({textOfNumber(each), true, {}});
    if (parts.empty())
        refuse(parameter, value);
    return parts;
}

std::string pathText(py::handle value)
{
    auto const path = py::reinterpret_steal<py::object>(PyOS_FSPath(value.ptr()));
    if (!path)
        throw py::error_already_set();
    return path.cast<std::string>();
}

std::string textFor(Parameter const& parameter, py::handle value)
{
    switch (parameter.kind) {
    case ParameterKind::Whole:
        return isWhole(value) ? wholeText(value) : (refuse(parameter, value), std::string());
    case ParameterKind::Real:
        if (PyBool_Check(value.ptr()) != 0 || isText(value) || PyNumber_Check(value.ptr()) == 0)
            refuse(parameter, value);
        return textOfNumber(value);
    case ParameterKind::Flag:
        if (!py::isinstance<py::bool_>(value) && !py::isinstance(value, py::module_::import("numpy").attr("bool_")))
            refuse(parameter, value);
        return py::bool_(py::reinterpret_borrow<py::object>(value)) ? "yes" : "no";
    case ParameterKind::File:
        return pathText(value);
    default:
        return isText(value) ? value.cast<std::string>() : (refuse(parameter, value), std::string());
    }
}

std::vector<ValuePart> valueParts(Parameter const& parameter, py::handle value)
{
    switch (parameter.kind) {
    case ParameterKind::Zones:
    case ParameterKind::Zone:
    case ParameterKind::Variables:
    case ParameterKind::Variable:
    case ParameterKind::Numbers:
        return thingsOf(parameter, value);
    case ParameterKind::Place:
    case ParameterKind::Direction:
        return realsOf(parameter, value);
    default:
        return {{textFor(parameter, value), true, {}}};
    }
}

} // namespace

std::string textOfNumber(py::handle number)
{
    double const real = PyFloat_AsDouble(number.ptr());
    if (PyErr_Occurred() != nullptr)
        throw py::error_already_set();
    return py::repr(py::float_(real)).cast<std::string>();
}

operations::CommandArgument argumentOf(Parameter const& parameter, py::handle value)
{
    operations::CommandArgument argument;
    argument.name = parameter.name;
    argument.parts = valueParts(parameter, value);
    return argument;
}

} // namespace veldraw::python

#include "python/OperationFunctions.h"

#include "python/ArgumentText.h"
#include "python/Failure.h"
#include "python/ProgramSession.h"
#include "python/PythonNames.h"

#include <pybind11/stl.h>

namespace py = pybind11;

namespace veldraw::python {

namespace {

/// An operation as a function; never destroyed, as Python keeps pointers into it.
struct Function
{
    operations::OperationEntry entry;
    std::string name;
    std::string documentation;
    PyMethodDef definition{};
};

operations::Command commandOf(operations::OperationEntry const& entry, py::dict const& values)
{
    operations::Command command;
    command.name = entry.name;
    for (auto const& [key, value] : values) {
        std::string const name = key.cast<std::string>();
        operations::Parameter const* found = nullptr;
        for (operations::Parameter const& parameter : entry.parameters)
            if (pythonName(parameter.name) == name)
                found = &parameter;
        if (found == nullptr)
            command.arguments.push_back({name, {operations::ValuePart()}, {}});
        else if (!value.is_none())
            command.arguments.push_back(argumentOf(*found, value));
    }
    return command;
}

PyObject* call(PyObject* self, PyObject* arguments, PyObject* keywords)
{
    auto const* const function = static_cast<Function const*>(PyCapsule_GetPointer(self, nullptr));
    if (PyTuple_GET_SIZE(arguments) != 0) {
        PyErr_Format(PyExc_TypeError, "%s() takes keyword arguments only", function->name.c_str());
        return nullptr;
    }
    try {
        auto const values = keywords != nullptr ? py::reinterpret_borrow<py::dict>(keywords) : py::dict();
        run(commandOf(function->entry, values));
        return py::none().release().ptr();
    } catch (py::error_already_set& error) {
        error.restore();
    } catch (py::builtin_exception const& error) {
        error.set_error();
    } catch (Failure const& failure) {
        PyErr_SetString(py::module_::import("veldraw").attr("Error").ptr(), failure.what());
    } catch (std::exception const& error) {
        PyErr_SetString(PyExc_RuntimeError, error.what());
    }
    return nullptr;
}

/// What the registry says of a parameter, for type stubs.
py::dict tableOf(operations::Parameter const& parameter)
{
    static char const* const kinds[] = {"zones", "zone",      "variables", "variable", "numbers", "whole", "real",
                                        "place", "direction", "choice",    "flag",     "text",    "files", "file"};
    py::dict table;
    table["name"] = pythonName(parameter.name);
    table["kind"] = kinds[static_cast<int>(parameter.kind)];
    table["words"] = parameter.words;
    return table;
}

py::list tableOfOperations()
{
    py::list all;
    for (operations::OperationEntry const& entry : operationsOfModule()) {
        py::list parameters;
        for (operations::Parameter const& parameter : entry.parameters)
            parameters.append(tableOf(parameter));
        all.append(py::make_tuple(pythonName(entry.name), parameters));
    }
    return all;
}

} // namespace

void addOperations(py::module_& module)
{
    module.def("_operations", &tableOfOperations, "The operations with the kinds of their parameters.");
    auto const moduleName = py::str(module.attr("__name__"));
    for (operations::OperationEntry& entry : operationsOfModule()) {
        auto* const function = new Function;
        function->name = pythonName(entry.name);
        function->documentation = documentationOf(entry);
        function->entry = std::move(entry);
        function->definition.ml_name = function->name.c_str();
        function->definition.ml_meth = reinterpret_cast<PyCFunction>(reinterpret_cast<void (*)()>(&call));
        function->definition.ml_flags = METH_VARARGS | METH_KEYWORDS;
        function->definition.ml_doc = function->documentation.c_str();
        py::capsule const self(function, [](void*) {});
        auto const made =
            py::reinterpret_steal<py::object>(PyCFunction_NewEx(&function->definition, self.ptr(), moduleName.ptr()));
        module.add_object(function->name.c_str(), made);
    }
}

} // namespace veldraw::python

#include "python/Values.h"

#include "python/ProgramSession.h"

#include <pybind11/stl.h>

namespace py = pybind11;

namespace veldraw::python {

kernel::Field const& Values::field() const
{
    return *m_zone.dataSet()->field(m_zone.number(), m_variable.number());
}

ArrayLayout Values::layout() const
{
    loadDimensions(*m_zone.dataSet(), m_zone.number());
    return layoutOf(m_zone.thing(), field().location());
}

void Values::load() const
{
    loadValues(*m_zone.dataSet(), m_zone.number(), m_variable.number());
}

py::array Values::array() const
{
    ArrayLayout const shape = layout();
    if (field().isPassive())
        return zerosFor(field().type(), shape);
    load();
    kernel::ShareGroup& group = *field().group();
    group.noteUse();
    return viewOf(group.buffer(), shape);
}

std::optional<std::pair<double, double>> Values::range() const
{
    kernel::ValueRange const known = m_zone.thing().range(m_variable.number());
    return known.isValid() ? std::optional(std::pair(known.min, known.max)) : std::nullopt;
}

namespace {

py::object asArray(Values const& values, py::object const& type)
{
    py::array const array = values.array();
    return type.is_none() ? py::object(array) : array.attr("astype")(type, py::arg("copy") = false);
}

std::string textOf(Values const& values)
{
    kernel::Field const& field = values.field();
    std::string const state = field.isPassive() ? "passive" : field.isLoaded() ? "loaded" : "not loaded";
    return "<veldraw.Values \"" + values.variable().name() + "\" in \"" + values.zone().name() + "\", " + state + '>';
}

/// Has the operators of Python work on the array.
void addOperators(py::class_<Values>& values)
{
    for (char const* const name :
         {"__add__",      "__radd__",     "__sub__",       "__rsub__", "__mul__",  "__rmul__", "__truediv__",
          "__rtruediv__", "__floordiv__", "__rfloordiv__", "__mod__",  "__rmod__", "__pow__",  "__rpow__",
          "__and__",      "__or__",       "__xor__",       "__neg__",  "__pos__",  "__abs__",  "__invert__",
          "__lt__",       "__le__",       "__gt__",        "__ge__",   "__eq__",   "__ne__",   "__getitem__",
          "__iter__",     "__contains__", "__float__",     "__int__"}) {
        std::string const method = name;
        py::cpp_function const function(
            [method](Values const& self, py::args const& others) { return self.array().attr(method.c_str())(*others); },
            py::name(name), py::is_method(values));
        values.attr(name) = function;
    }
    values.attr("__hash__") = py::none(); // equality compares value by value
}

/// What can be told without loading.
void addState(py::class_<Values>& values)
{
    values
        .def_property_readonly(
            "location",
            [](Values const& self) { return self.field().location() == ValueLocation_Nodal ? "points" : "cells"; },
            "\"points\" or \"cells\".")
        .def_property_readonly(
            "is_loaded", [](Values const& self) { return self.field().isLoaded(); },
            "Whether the values are in memory.")
        .def_property_readonly(
            "is_passive", [](Values const& self) { return self.field().isPassive(); },
            "Whether the zone has no values of the variable, which reads as 0 there.")
        .def_property_readonly(
            "share_count", [](Values const& self) { return self.field().shareCount(); },
            "Number of zones and variables that share the values, this one included.");
}

} // namespace

void addValues(py::module_& module)
{
    py::class_<Values> values(
        module, "Values",
        "The values of a variable in a zone, as NumPy sees an array. They are loaded when they are "
        "touched, not before.");
    values
        .def_property_readonly(
            "array", &Values::array,
            "The values as they are now, loaded: a read-only array without a copy, which stays what it is whatever "
            "becomes of the data set.")
        .def("load", &Values::load, "Loads the values.")
        .def_property_readonly(
            "shape", [](Values const& self) { return py::tuple(py::cast(self.layout().shape)); },
            "Values along each dimension.")
        .def_property_readonly(
            "ndim", [](Values const& self) { return self.layout().shape.size(); }, "Number of dimensions.")
        .def_property_readonly(
            "size", [](Values const& self) { return self.layout().size(); }, "Number of values.")
        .def_property_readonly(
            "dtype", [](Values const& self) { return dtypeOf(self.field().type()); }, "Type of the values.")
        .def_property_readonly("range", &Values::range,
                               "Smallest and largest finite value, as far as known without loading; None otherwise.")
        .def("__array__", &asArray, py::arg("dtype") = py::none())
        .def("__len__", [](Values const& self) { return self.layout().shape.front(); })
        .def("__repr__", &textOf)
        .def("__getattr__", [](Values const& self, std::string const& name) -> py::object {
            if (name.compare(0, 2, "__") == 0) // what NumPy asks for to find out what this is
                throw py::attribute_error(name);
            return self.array().attr(name.c_str());
        });
    addState(values);
    addOperators(values);
}

} // namespace veldraw::python

#include "python/DataClasses.h"

#include "kernel/session/Session.h"
#include "python/Failure.h"
#include "python/ProgramSession.h"
#include "python/ThingHandle.h"
#include "python/ValueWriting.h"
#include "python/Values.h"

#include <algorithm>
#include <limits>
#include <pybind11/stl.h>

namespace py = pybind11;

namespace veldraw::python {

namespace {

using DataSetClass = py::class_<kernel::DataSet, std::shared_ptr<kernel::DataSet>>;

template <typename Thing>
ThingHandle<Thing> itemOf(ThingList<Thing> const& list, py::object const& key)
{
    if (PyIndex_Check(key.ptr()) != 0) {
        py::ssize_t const number = PyNumber_AsSsize_t(key.ptr(), PyExc_IndexError);
        if (PyErr_Occurred() != nullptr)
            throw py::error_already_set();
        return list.at(static_cast<int>(std::clamp<py::ssize_t>(number, -1, std::numeric_limits<int>::max())));
    }
    if (!py::isinstance<py::str>(key))
        throw py::type_error("A number, from 1 on, or a name is wanted.");
    int const number = list.find(key.cast<std::string>());
    if (number == 0)
        throw py::key_error(key.cast<std::string>());
    return list.at(number);
}

template <typename Thing>
py::iterator iteratorOf(ThingList<Thing> const& list)
{
    py::list all;
    for (int number = 1; number <= list.count(); ++number)
        all.append(list.at(number));
    return py::iter(all);
}

template <typename Thing>
std::string listText(ThingList<Thing> const& list)
{
    py::list names;
    for (int number = 1; number <= list.count(); ++number)
        names.append(list.at(number).name());
    return py::repr(names).cast<std::string>();
}

template <typename Thing>
void addList(py::module_& module, char const* name, char const* documentation)
{
    py::class_<ThingList<Thing>>(module, name, documentation)
        .def("__len__", &ThingList<Thing>::count)
        .def("__getitem__", &itemOf<Thing>, py::arg("key"))
        .def("__iter__", &iteratorOf<Thing>)
        .def("__contains__",
             [](ThingList<Thing> const& list, std::string const& wanted) { return list.find(wanted) != 0; })
        .def("__repr__", &listText<Thing>);
}

py::dict textsOf(kernel::AuxiliaryData const& data)
{
    py::dict texts;
    for (int number = 1; number <= data.size(); ++number)
        texts[py::str(data.item(number).name)] = data.item(number).value;
    return texts;
}

template <typename Thing>
py::class_<ThingHandle<Thing>> addThing(py::module_& module, char const* name, char const* documentation)
{
    using Handle = ThingHandle<Thing>;
    py::class_<Handle> made(module, name, documentation);
    made.def_property_readonly("number", &Handle::number, "Its place in the data set, from 1 on.")
        .def_property_readonly("name", &Handle::name, "Its name.")
        .def_property_readonly(
            "enabled", [](Handle const& self) { return self.thing().enabled; },
            "Whether it takes part in plots and operations.")
        .def_property_readonly(
            "auxiliary_data", [](Handle const& self) { return textsOf(self.thing().auxiliaryData); },
            "Its auxiliary data, texts by their names.")
        .def_property_readonly("data_set", &Handle::dataSet, "The data set that it is of.")
        .def("__eq__", [](Handle const& self, Handle const& other) { return self == other; })
        .def("__eq__", [](Handle const&, py::object const&) { return false; })
        .def("__hash__", [](Handle const& self) { return self.id(); })
        .def("__repr__", [kind = std::string(name)](Handle const& self) {
            return "<veldraw." + kind + " \"" + self.name() + "\">";
        });
    return made;
}

VariableHandle variableOf(ZoneHandle const& zone, py::object const& key)
{
    if (!py::isinstance<VariableHandle>(key))
        return itemOf(VariableList{zone.dataSet()}, key);
    auto variable = key.cast<VariableHandle>();
    if (variable.dataSet() != zone.dataSet())
        throw Failure(variable.description() + " is of another data set.");
    return variable;
}

char const* kindOf(ZoneHandle const& zone)
{
    static char const* const names[] = {"ordered", "triangles", "quads",     "tetrahedra", "bricks",
                                        "lines",   "polygons",  "polyhedra", "mixed"};
    return names[zone.thing().type];
}

kernel::Zone const& withDimensions(ZoneHandle const& zone)
{
    loadDimensions(*zone.dataSet(), zone.number());
    return zone.thing();
}

void addZone(py::module_& module)
{
    auto zone = addThing<kernel::Zone>(module, "Zone", "Points with their cells, and values of the variables there.");
    zone.def_property_readonly("kind", &kindOf, "\"ordered\", or what its cells are.")
        .def_property_readonly(
            "shape",
            [](ZoneHandle const& self) {
                return py::tuple(py::cast(layoutOf(withDimensions(self), ValueLocation_Nodal).shape));
            },
            "Points along each dimension.")
        .def_property_readonly(
            "point_count", [](ZoneHandle const& self) { return withDimensions(self).pointCount(); },
            "Number of points.")
        .def_property_readonly(
            "cell_count", [](ZoneHandle const& self) { return withDimensions(self).cellCount(); }, "Number of cells.")
        .def_property_readonly(
            "solution_time", [](ZoneHandle const& self) { return self.thing().solutionTime; }, "Its moment.")
        .def_property_readonly(
            "strand",
            [](ZoneHandle const& self) {
                int const strand = self.thing().strand;
                return strand == kernel::staticStrand ? std::nullopt : std::optional(strand);
            },
            "Its time strand; None for a zone that is there at all times.")
        .def(
            "__getitem__",
            [](ZoneHandle const& self, py::object const& variable) { return Values(self, variableOf(self, variable)); },
            py::arg("variable"), "The values of a variable, by its number, its name or itself.")
        .def(
            "writing",
            [](ZoneHandle const& self, py::object const& variable, bool isShared) {
                return ValueWriting(Values(self, variableOf(self, variable)), isShared);
            },
            py::arg("variable"), py::kw_only(), py::arg("shared") = false,
            "For a with statement: an array that can be written to, whose values become those of the zone, as one "
            "step, "
            "when the statement ends.\n\nshared: whether zones that share the values get the new ones too.");
}

std::vector<std::shared_ptr<kernel::DataSet>> shownDataSets()
{
    std::vector<std::shared_ptr<kernel::DataSet>> all;
    if (auto const page = session().activePage())
        for (auto const& frame : page->frames)
            if (frame->dataSet && std::find(all.begin(), all.end(), frame->dataSet) == all.end())
                all.push_back(frame->dataSet);
    return all;
}

void addDataSet(py::module_& module)
{
    DataSetClass(module, "DataSet", "Zones and variables that belong together.")
        .def_property_readonly("title", &kernel::DataSet::title, "Its title.")
        .def_property_readonly(
            "zones", [](std::shared_ptr<kernel::DataSet> const& self) { return ZoneList{self}; },
            "Its zones, by number from 1 on or by name.")
        .def_property_readonly(
            "variables", [](std::shared_ptr<kernel::DataSet> const& self) { return VariableList{self}; },
            "Its variables, by number from 1 on or by name.")
        .def_property_readonly(
            "auxiliary_data", [](kernel::DataSet const& self) { return textsOf(self.auxiliaryData()); },
            "Its auxiliary data, texts by their names.")
        .def(
            "save",
            [](std::shared_ptr<kernel::DataSet> const& self, py::object const& file, bool overwrite) {
                auto const path = py::module_::import("os").attr("fspath")(file).cast<std::string>();
                saveFile(self, path, overwrite);
            },
            py::arg("file"), py::kw_only(), py::arg("overwrite") = false,
            "Saves the data set; the extension chooses the format.")
        .def("__repr__", [](kernel::DataSet const& self) {
            return "<veldraw.DataSet \"" + self.title() + "\", " + std::to_string(self.zoneCount()) + " zones, " +
                   std::to_string(self.variableCount()) + " variables>";
        });
    module.def(
        "data_set", [] { return session().activeDataSet(); }, "The data set of the active frame; None if it has none.");
    module.def("data_sets", &shownDataSets, "The data sets of all frames, each once.");
}

} // namespace

void addDataClasses(py::module_& module)
{
    py::class_<VariableHandle> const variable =
        addThing<kernel::Variable>(module, "Variable", "A variable of a data set.");
    addList<kernel::Variable>(module, "VariableList", "The variables of a data set, by number from 1 on or by name.");
    addZone(module);
    addList<kernel::Zone>(module, "ZoneList", "The zones of a data set, by number from 1 on or by name.");
    addDataSet(module);
}

} // namespace veldraw::python

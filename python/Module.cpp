#include "app/import/child/ReaderProcess.h"
#include "kernel/base/Parallel.h"
#include "kernel/session/Session.h"
#include "python/ArrayImport.h"
#include "python/DataClasses.h"
#include "python/Failure.h"
#include "python/OperationFunctions.h"
#include "python/ProgramSession.h"
#include "python/ValueWriting.h"
#include "python/Values.h"

#include <filesystem>
#include <pybind11/stl.h>

namespace py = pybind11;

namespace veldraw::python {

namespace {

/// The process that reads files stands in a folder bin beside one of those above the module.
void findReader()
{
    std::filesystem::path const module = py::module_::import("veldraw").attr("__file__").cast<std::string>();
    for (auto folder = std::filesystem::absolute(module).parent_path(); folder.has_relative_path();
         folder = folder.parent_path()) {
        std::filesystem::path const reader = folder / "bin" / "veldraw_reader";
        std::error_code error;
        if (std::filesystem::exists(reader, error)) {
            app::ReaderProcess::setUsualProgram(reader.string());
            return;
        }
    }
}

std::shared_ptr<kernel::DataSet> openGiven(py::args const& given, std::string const& deferral, bool inNewFrames,
                                           bool followPaths)
{
    static bool const isReaderKnown = (findReader(), true);
    static_cast<void>(isReaderKnown);
    std::vector<std::string> paths;
    for (py::handle const file : given)
        paths.push_back(py::module_::import("os").attr("fspath")(file).cast<std::string>());
    return openFiles(paths, deferral, inNewFrames, followPaths);
}

void saveActive(py::object const& file, bool overwrite)
{
    auto const dataSet = session().activeDataSet();
    if (!dataSet)
        throw Failure("There is no data set.");
    saveFile(dataSet, py::module_::import("os").attr("fspath")(file).cast<std::string>(), overwrite);
}

std::shared_ptr<kernel::DataSet> fromArrays(py::dict const& zones, py::dict const& cells, std::string const& title,
                                            bool inNewFrame)
{
    auto dataSet = dataSetOfArrays(zones, cells, title);
    show(dataSet, inNewFrame);
    return dataSet;
}

void addFunctions(py::module_& module)
{
    module.def(
        "from_arrays", &fromArrays, py::arg("zones"), py::kw_only(), py::arg("cells") = py::dict(),
        py::arg("title") = "", py::arg("new_frames") = false,
        "Makes a data set of arrays, which are copied.\n\nzones: arrays by the names of variables, by the names of "
        "zones: {\"Wing\": {\"X\": x, \"p\": p}}. The first array of a zone has a value for each point, the others "
        "too, or "
        "one for each cell.\ncells: for zones that are not ordered, what the cells are and an array of their points, "
        "from 0 on: {\"Wing\": (\"triangles\", array)}. They are \"lines\", \"triangles\", \"quads\", \"tetrahedra\" "
        "or "
        "\"bricks\".\ntitle: of the data set.\nnew_frames: whether what is open stays.");
    module.def(
        "open", &openGiven, py::arg("defer") = "auto", py::arg("new_frames") = false, py::arg("follow_paths") = false,
        "Opens files, each in a frame of its own; those that are numbered alike as one transient data set. Returns "
        "the data set of the active frame.\n\ndefer: which values are loaded when they are touched: \"auto\", "
        "\"always\" or \"never\".\nnew_frames: whether what is open stays.\nfollow_paths: whether files "
        "outside of its folder that a file names are read.");
    module.def(
        "save", &saveActive, py::arg("file"), py::kw_only(), py::arg("overwrite") = false,
        "Saves the active data set; the extension chooses the format.\n\noverwrite: whether more than that file may "
        "be replaced: a folder with the tables of several zones.");
    module.def("undo", &undo, "Takes the newest step back.");
    module.def("redo", &redo, "Does the step again that was taken back last.");
    module.def(
        "journal", [] { return session().journal().script(); },
        "What has been done, as a script for the command line: veldraw --run.");
    module.def("set_threads", &kernel::setThreadCount, py::arg("count"), "Sets how many threads compute.");
}

} // namespace

PYBIND11_MODULE(veldraw, module)
{
    module.doc() = "Data operations on simulation results.";
    module.attr("__version__") = VELDRAW_VERSION;
    py::register_exception<Failure>(module, "Error").doc() =
        "Something was refused or has failed, for the reason in its text. Nothing has changed then.";
    addDataClasses(module);
    addValues(module);
    addValueWriting(module);
    addFunctions(module);
    addOperations(module);
}

} // namespace veldraw::python

#include "app/commandline/ProgramOperations.h"

#include "operations/KernelOperations.h"

#include <stdexcept>

namespace veldraw::app {

namespace {

using operations::Arguments;
using operations::OperationEntry;
using operations::parameter;
using operations::ParameterKind;

QString path(Arguments const& arguments)
{
    return QString::fromStdString(arguments.text("file"));
}

/// An operation that leaves its work to the file actions.
template <typename Work>
std::function<bool(Arguments const&)> with(FileOperations* files, Work const& work)
{
    return [files, work](Arguments const& arguments) {
        if (files == nullptr)
            throw std::logic_error("Nobody works on files here.");
        work(*files, arguments);
        return true;
    };
}

} // namespace

OperationEntry runScriptEntry()
{
    OperationEntry entry;
    entry.name = runScriptName;
    entry.title = "Run Script";
    entry.sentence = "Stands for the commands of a script.";
    entry.parameters = {parameter("file", ParameterKind::File, "The script.")};
    entry.run = [](Arguments const&) -> bool { throw std::logic_error("Scripts are read before commands run."); };
    entry.renews = OperationEntry::Renews::DataSet;
    entry.needsData = false;
    return entry;
}

operations::Registry programOperations(FileOperations* files)
{
    operations::Registry registry = operations::kernelOperations();
    registry.add(
        {"open",
         "Open",
         "Opens a file instead of all that is open.",
         {parameter("file", ParameterKind::File, "The file.")},
         with(files, [](FileOperations& actions, Arguments const& arguments) { actions.open(path(arguments)); }),
         "",
         "",
         OperationEntry::Renews::DataSet,
         false});
    registry.add(
        {"save",
         "Save As",
         "Saves the data set; the extension chooses the format.",
         {parameter("file", ParameterKind::File, "The file."),
          parameter("overwrite", ParameterKind::Flag,
                    "Whether more than that file may be replaced: a folder with the tables of several zones.")
              .startingWith("no")},
         with(files, [](FileOperations& actions,
                        Arguments const& arguments) { actions.save(path(arguments), arguments.flag("overwrite")); }),
         "",
         ""});
    registry.add(
        {savePictureName,
         "Save Picture",
         "Saves a picture of the page.",
         {parameter("file", ParameterKind::File, "The picture, a .png.")},
         with(files, [](FileOperations& actions, Arguments const& arguments) { actions.savePicture(path(arguments)); }),
         "",
         "",
         OperationEntry::Renews::Nothing,
         false});
    registry.add(runScriptEntry());
    return registry;
}

} // namespace veldraw::app

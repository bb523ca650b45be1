#include "app/commands/ProgramOperations.h"

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

constexpr char openDataName[] = "open";
constexpr char saveDataName[] = "save";

OperationEntry openEntry(FileOperations* files)
{
    OperationEntry entry{
        openDataName,
        "Open",
        "Opens files, each in a frame of its own; those that are numbered alike as one transient data set.",
        {parameter("files", ParameterKind::Files, "The files."),
         parameter("new-frames", ParameterKind::Flag, "Whether what is open stays.").startingWith("no")},
        with(files, [](FileOperations& on, Arguments const& arguments) {
            QStringList paths;
            for (std::string const& file : arguments.texts("files"))
                paths << QString::fromStdString(file);
            on.open(paths, arguments.flag("new-frames"));
        })};
    entry.renews = OperationEntry::Renews::DataSet;
    entry.needsData = false;
    return entry;
}

OperationEntry saveEntry(FileOperations* files)
{
    return {saveDataName,
            "Save As",
            "Saves the data set; the extension chooses the format.",
            {parameter("file", ParameterKind::File, "The file."),
             parameter("overwrite", ParameterKind::Flag,
                       "Whether more than that file may be replaced: a folder with the tables of several zones.")
                 .startingWith("no")},
            with(files, [](FileOperations& on, Arguments const& arguments) {
                on.save(path(arguments), arguments.flag("overwrite"));
            })};
}

OperationEntry savePictureEntry(FileOperations* files)
{
    OperationEntry entry{
        savePictureName,
        "Save Picture",
        "Saves a picture of the page.",
        {parameter("file", ParameterKind::File, "The picture, a .png.")},
        with(files, [](FileOperations& on, Arguments const& arguments) { on.savePicture(path(arguments)); })};
    entry.needsData = false;
    return entry;
}

/// What works on files asks for the application's lock by itself.
void addOnFiles(operations::Registry& registry, OperationEntry entry)
{
    entry.isLocking = false;
    registry.add(std::move(entry));
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

kernel::CommandText openCommand(QStringList const& paths, bool inNewFrames)
{
    std::string list;
    for (QString const& path : paths)
        list += (list.empty() ? "" : ",") + kernel::quotedWhereNeeded(path.toStdString());
    kernel::CommandText text = kernel::CommandText(openDataName).word("files", list);
    return inNewFrames ? text.flag("new-frames", true) : text;
}

kernel::CommandText saveCommand(QString const& path, bool overwrite)
{
    kernel::CommandText text = kernel::CommandText(saveDataName).quoted("file", path.toStdString());
    return overwrite ? text.flag("overwrite", true) : text;
}

kernel::CommandText savePictureCommand(QString const& path)
{
    return kernel::CommandText(savePictureName).quoted("file", path.toStdString());
}

operations::Registry programOperations(FileOperations* files)
{
    operations::Registry registry = operations::kernelOperations();
    addOnFiles(registry, openEntry(files));
    addOnFiles(registry, saveEntry(files));
    addOnFiles(registry, savePictureEntry(files));
    registry.add(runScriptEntry());
    return registry;
}

} // namespace veldraw::app

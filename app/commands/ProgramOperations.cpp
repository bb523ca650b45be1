#include "app/commands/ProgramOperations.h"

#include "operations/KernelOperations.h"

#include <stdexcept>

namespace veldraw::app {

namespace {

using operations::Arguments;
using operations::choice;
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

PictureOptions pictureOptions(Arguments const& arguments)
{
    PictureOptions options;
    if (arguments.has("width") != arguments.has("height"))
        throw std::runtime_error("The width and the height of a picture are given together.");
    if (arguments.has("width"))
        options.size = {static_cast<int>(arguments.whole("width")), static_cast<int>(arguments.whole("height"))};
    if (arguments.has("scale"))
        options.scale = arguments.real("scale");
    options.isTransparent = arguments.flag("transparent");
    options.activeFrameOnly = arguments.choice("frames") == 1;
    QString const problem = options.problem();
    if (!problem.isEmpty())
        throw std::runtime_error(problem.toStdString());
    return options;
}

operations::Parameter pictureSide(char const* name, char const* sentence)
{
    return parameter(name, ParameterKind::Whole, sentence)
        .within(PictureOptions::smallestSide, PictureOptions::longestSide)
        .in("pixels")
        .startingWith("");
}

OperationEntry savePictureEntry(FileOperations* files)
{
    OperationEntry entry{
        savePictureName,
        "Save Picture",
        "Saves a picture of the page.",
        {parameter("file", ParameterKind::File, "The picture, a .png, .jpg or .pdf."),
         pictureSide("width", "How wide it is laid out; as the page in the window, or 1200, if it is not given."),
         pictureSide("height", "How high it is laid out; as the page in the window, or 900, if it is not given."),
         parameter(
             "scale", ParameterKind::Real,
             "How many pixels it has for each of these along both sides; as many as the screen if it is not given.")
             .within(PictureOptions::smallestScale, PictureOptions::largestScale)
             .startingWith(""),
         parameter("transparent", ParameterKind::Flag, "Whether there is nothing behind the plots; else white.")
             .startingWith("no"),
         choice("frames", {"all", "active"}, "Whether the page or the active frame alone fills it.")
             .startingWith("all")},
        with(files, [](FileOperations& on, Arguments const& arguments) {
            on.savePicture(path(arguments), pictureOptions(arguments));
        })};
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

kernel::CommandText savePictureCommand(QString const& path, PictureOptions const& options)
{
    kernel::CommandText text = kernel::CommandText(savePictureName).quoted("file", path.toStdString());
    if (!options.size.isEmpty())
        text = text.number("width", options.size.width()).number("height", options.size.height());
    if (options.scale != 0.0)
        text = text.real("scale", options.scale);
    if (options.isTransparent)
        text = text.flag("transparent", true);
    return options.activeFrameOnly ? text.word("frames", "active") : text;
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

#include "app/export/formats/table/TableWriter.h"

#include "app/export/writing/FileSave.h"
#include "app/export/writing/FolderSave.h"
#include "app/export/writing/OutputFile.h"
#include "app/files/CommentValue.h"
#include "app/files/PathChecks.h"
#include "platform/vdsdkcommon/ShortestText.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <memory>

namespace veldraw::app {

namespace {

struct Column
{
    std::string name;
    std::shared_ptr<kernel::Buffer const> values;
};

bool readsAsNumber(std::string const& text)
{
    double value = 0.0;
    auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return end == text.data() + text.size() && error != std::errc::invalid_argument;
}

// Quoted where it would read back as something else.
std::string headerCell(std::string const& name, char separator)
{
    bool const isOdd = name.front() == ' ' || name.back() == ' ' || name.front() == '#';
    if (!isOdd && !readsAsNumber(name) &&
        name.find_first_of(std::string("\",;\t\r\n") + separator) == std::string::npos)
        return name;
    std::string quoted = "\"";
    for (char c : name)
        quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
    return quoted + "\"";
}

std::string commentsOn(kernel::AuxiliaryData const& data)
{
    std::string lines;
    for (int n = 1; n <= data.size(); ++n) {
        kernel::AuxiliaryData::Item const& item = data.item(n);
        if (item.retain)
            lines += "# " + item.name + ": " + commentValue(item.value) + "\n";
    }
    return lines;
}

bool hasRetained(kernel::AuxiliaryData const& data)
{
    for (int n = 1; n <= data.size(); ++n) {
        if (data.item(n).retain)
            return true;
    }
    return false;
}

// Whether there are auxiliary data that a table has no place for.
bool hasFurtherNotes(kernel::DataSet const& dataSet)
{
    auto const has = [](auto const& owner) { return hasRetained(owner->auxiliaryData); };
    return std::any_of(dataSet.zones().begin(), dataSet.zones().end(), has) ||
           std::any_of(dataSet.variables().begin(), dataSet.variables().end(), has);
}

void writeRows(OutputFile& file, std::vector<Column> const& columns, std::int64_t rows, char separator,
               kernel::Progress& progress)
{
    constexpr std::size_t flushAt = 1 << 20;
    std::string text;
    for (std::size_t n = 0; n < columns.size(); ++n)
        text += (n > 0 ? std::string(1, separator) : std::string()) + headerCell(columns[n].name, separator);
    text += '\n';
    for (std::int64_t row = 0; row < rows; ++row) {
        for (std::size_t n = 0; n < columns.size(); ++n) {
            if (n > 0)
                text += separator;
            sdk::appendShortest(text, columns[n].values->value(row), columns[n].values->type());
        }
        text += '\n';
        if (text.size() > flushAt || row + 1 == rows) {
            file.write(text);
            text.clear();
            progress.reach(static_cast<double>(row) / static_cast<double>(rows));
            progress.check();
        }
    }
}

// What a table has of a zone, and the names of what it has not.
struct Table
{
    std::vector<Column> columns;
    std::vector<std::string> leftOut;
};

Table tableOf(kernel::DataSet const& dataSet, int zone)
{
    Table table;
    auto const names = uniqueVariableNames(dataSet);
    for (int variable = 1; variable <= dataSet.variableCount(); ++variable) {
        kernel::Field const& field = *dataSet.field(zone, variable);
        std::string const& name = names[static_cast<std::size_t>(variable - 1)];
        if (field.isPassive())
            continue;
        if (field.location() == ValueLocation_Nodal)
            table.columns.push_back({name, field.group()->buffer()});
        else
            table.leftOut.push_back(name);
    }
    return table;
}

// How a table is to be written.
struct Form
{
    std::string path;
    char separator;
};

void writeZone(kernel::DataSet const& dataSet, int zone, Form const& form, ExportContext const& context)
{
    kernel::Zone const& source = *dataSet.zone(zone);
    Table const table = tableOf(dataSet, zone);
    if (table.columns.empty())
        throw ExportError("zone \"" + source.name + "\" has no nodal values, which a table could hold");
    kernel::Progress ofZone(context.progress, workOf(source));
    ofZone.check();
    OutputFile file(form.path);
    file.write(commentsOn(dataSet.auxiliaryData()));
    writeRows(file, table.columns, source.pointCount(), form.separator, ofZone);
    file.close();
    std::string const start = "Zone \"" + source.name + "\": ";
    for (std::string const& name : table.leftOut)
        context.remarks.push_back(start + "\"" + name + "\" is cell-centred and was left out");
    if (auto const hidden = source.hidden(ValueLocation_Nodal))
        context.remarks.push_back(start + "its " + std::to_string(hidden->count()) +
                                  " hidden points are rows like others, since a table cannot tell them apart");
}

// The folder that takes several tables; that of the zones of a multi-block file has the bare name.
std::string folderFor(std::string const& path)
{
    return (std::filesystem::path(path).parent_path() / (baseNameOf(path) + "_tables")).string();
}

std::string nameOfTable(std::string const& path, int zone)
{
    std::filesystem::path const target(path);
    return target.stem().string() + "_" + std::to_string(zone) + target.extension().string();
}

// Whether a save of several zones as @p path may have made a file of this name, in either format of tables.
FolderSave::IsEarlier isTableOf(std::string const& path)
{
    return [start = baseNameOf(path) + "_"](std::string const& name) {
        std::string const extension = extensionOf(name);
        std::string const stem = baseNameOf(name);
        return (extension == "csv" || extension == "tsv") && stem.size() > start.size() &&
               stem.compare(0, start.size(), start) == 0 &&
               stem.find_first_not_of("0123456789", start.size()) == std::string::npos;
    };
}

std::unique_ptr<PendingSave> writeZones(kernel::DataSet const& dataSet, std::string const& path, char separator,
                                        ExportContext const& context)
{
    std::vector<std::string> names;
    for (int zone = 1; zone <= dataSet.zoneCount(); ++zone)
        names.push_back(nameOfTable(path, zone));
    auto save = std::make_unique<FolderSave>(folderFor(path), names, isTableOf(path));
    for (int zone = 1; zone <= dataSet.zoneCount(); ++zone)
        writeZone(dataSet, zone, {save->path(names[static_cast<std::size_t>(zone - 1)]), separator}, context);
    context.remarks.push_back(
        "A table holds one zone: " + std::to_string(dataSet.zoneCount()) + " files were written into the folder \"" +
        std::filesystem::path(folderFor(path)).filename().string() + "\", with the zone's number in their names");
    return save;
}

} // namespace

std::string TableWriter::alsoReplaces(kernel::DataSet const& dataSet, std::string const& path) const
{
    if (dataSet.zoneCount() < 2)
        return {};
    auto const old = FolderSave::replacedFiles(folderFor(path), isTableOf(path));
    return old.empty() ? std::string()
                       : "the folder \"" + folderFor(path) + "\" with " +
                             (old.size() == 1 ? "a table" : std::to_string(old.size()) + " tables");
}

std::string TableWriter::madePath(kernel::DataSet const& dataSet, std::string const& path) const
{
    return dataSet.zoneCount() > 1 ? folderFor(path) : path;
}

std::unique_ptr<PendingSave> TableWriter::write(kernel::DataSet const& dataSet, std::string const& path,
                                                ExportContext const& context)
{
    char const separator = extensionOf(path) == "tsv" ? '\t' : ',';
    std::unique_ptr<PendingSave> save;
    if (dataSet.zoneCount() > 1) {
        save = writeZones(dataSet, path, separator, context);
    } else {
        auto file = std::make_unique<FileSave>(path);
        writeZone(dataSet, 1, {file->path(), separator}, context);
        save = std::move(file);
    }
    if (hasFurtherNotes(dataSet))
        context.remarks.push_back(
            "Auxiliary data of zones and variables were left out: a table has a place for those of the "
            "data set only");
    return save;
}

} // namespace veldraw::app

#include "app/export/formats/table/TableWriter.h"

#include "app/files/CommentValue.h"
#include "app/files/PathChecks.h"
#include "platform/vdsdkcommon/ShortestText.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <fstream>
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

void writeRows(std::ofstream& file, std::vector<Column> const& columns, std::int64_t rows, char separator,
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
            file.write(text.data(), static_cast<std::streamsize>(text.size()));
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

void writeZone(kernel::DataSet const& dataSet, int zone, std::string const& file, ExportContext const& context)
{
    kernel::Zone const& source = *dataSet.zone(zone);
    Table const table = tableOf(dataSet, zone);
    if (table.columns.empty())
        throw ExportError("zone \"" + source.name + "\" has no nodal values, which a table could hold");
    kernel::Progress ofZone(context.progress, workOf(source));
    ofZone.check();
    std::ofstream stream(context.files.add(file), std::ios::binary | std::ios::trunc);
    stream << commentsOn(dataSet.auxiliaryData());
    writeRows(stream, table.columns, source.pointCount(), extensionOf(file) == "tsv" ? '\t' : ',', ofZone);
    stream.close();
    if (!stream)
        throw ExportError("the file could not be written; the disk may be full");
    std::string const start = "Zone \"" + source.name + "\": ";
    for (std::string const& name : table.leftOut)
        context.remarks.push_back(start + "\"" + name + "\" is cell-centred and was left out");
    if (auto const hidden = source.hidden(ValueLocation_Nodal))
        context.remarks.push_back(start + "its " + std::to_string(hidden->count()) +
                                  " hidden points are rows like others, since a table cannot tell them apart");
}

} // namespace

void TableWriter::write(kernel::DataSet const& dataSet, std::string const& path, ExportContext const& context)
{
    std::filesystem::path const target(path);
    for (int zone = 1; zone <= dataSet.zoneCount(); ++zone) {
        std::filesystem::path file = target;
        if (dataSet.zoneCount() > 1)
            file.replace_filename(target.stem().string() + "_" + std::to_string(zone) + target.extension().string());
        writeZone(dataSet, zone, file.string(), context);
    }
    if (hasFurtherNotes(dataSet))
        context.remarks.push_back(
            "Auxiliary data of zones and variables were left out: a table has a place for those of the "
            "data set only");
    if (dataSet.zoneCount() > 1)
        context.remarks.push_back("A table holds one zone: " + std::to_string(dataSet.zoneCount()) +
                                  " files were written, with the zone's number in their names");
}

} // namespace veldraw::app

#include "app/export/CsvExport.h"

#include "app/export/ExportError.h"
#include "app/export/UniqueNames.h"
#include "platform/vdsdkcommon/ShortestText.h"

#include <charconv>
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
    bool const blanks = name.front() == ' ' || name.back() == ' ';
    if (!blanks && !readsAsNumber(name) &&
        name.find_first_of(std::string("\",;\t\r\n") + separator) == std::string::npos)
        return name;
    std::string quoted = "\"";
    for (char c : name)
        quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
    return quoted + "\"";
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

} // namespace

std::vector<std::string> writeCsv(kernel::DataSet const& dataSet, int zone, char separator, std::string const& path,
                                  kernel::Progress& progress)
{
    std::vector<Column> columns;
    std::vector<std::string> leftOut;
    auto const names = uniqueVariableNames(dataSet);
    for (int variable = 1; variable <= dataSet.variableCount(); ++variable) {
        kernel::Field const& field = *dataSet.field(zone, variable);
        std::string const& name = names[static_cast<std::size_t>(variable - 1)];
        if (field.isPassive())
            continue;
        if (field.location() == ValueLocation_Nodal)
            columns.push_back({name, field.group()->buffer()});
        else
            leftOut.push_back(name);
    }
    if (columns.empty())
        throw ExportError("zone \"" + dataSet.zone(zone)->name + "\" has no nodal values, which a table could hold");
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    writeRows(file, columns, dataSet.zone(zone)->pointCount(), separator, progress);
    file.close();
    if (!file)
        throw ExportError("the file could not be written; the disk may be full");
    return leftOut;
}

} // namespace veldraw::app

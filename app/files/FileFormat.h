#pragma once

#include <QStringList>

#include <algorithm>
#include <string>
#include <vector>

namespace veldraw::app {

/// What users are told of a format of files: the part that the tables of readable and of writable formats have in common.
struct FileFormat
{
    std::string description;             ///< as a list shows it, such as "VTK XML files"
    std::vector<std::string> extensions; ///< lower case, without the dot; one at least
    std::vector<std::string> names{};    ///< of files that have no extension

    bool has(std::string const& extension) const;

    /// The extensions, each with @p before in front, and the names, all with blanks between: ".csv .tsv" or "*.csv *.tsv".
    std::string extensionList(std::string const& before) const;

    /// Description and extensions: "VTK XML files (.vti .vtu)". With "*." before each extension it is a file dialog's filter.
    std::string text(std::string const& before = ".") const;
};

/// The entry of a table that has an extension, null if none has it.
/// @param extension lower case, without the dot
template <typename Format>
Format const* findFormat(std::vector<Format> const& table, std::string const& extension)
{
    auto const found =
        std::find_if(table.begin(), table.end(), [&](FileFormat const& format) { return format.has(extension); });
    return found == table.end() ? nullptr : &*found;
}

/// Filters for a file dialog, in the order of the table.
template <typename Format>
QStringList nameFiltersOf(std::vector<Format> const& table)
{
    QStringList filters;
    for (FileFormat const& format : table)
        filters.append(QString::fromStdString(format.text("*.")));
    return filters;
}

/// All extensions of a table, as extensionList() gives them.
template <typename Format>
std::string allExtensions(std::vector<Format> const& table, std::string const& before)
{
    std::string text;
    for (FileFormat const& format : table)
        text += (text.empty() ? "" : " ") + format.extensionList(before);
    return text;
}

} // namespace veldraw::app

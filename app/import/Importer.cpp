#include "app/import/Importer.h"

#include "app/files/PathChecks.h"
#include "app/files/PlainText.h"
#include "app/files/SystemReason.h"
#include "app/import/ReadableFormats.h"
#include "app/import/reading/FileSeries.h"
#include "app/import/zones/DataSetOfZones.h"

#include <QFileInfo>

#include <algorithm>
#include <filesystem>
#include <ios>
#include <new>
#include <stdexcept>
#include <unordered_set>

namespace veldraw::app {

namespace {

constexpr std::int64_t progressSteps = 1000000;

ReadableFormat const& formatOf(std::string const& path)
{
    std::string const extension = extensionOf(path);
    if (ReadableFormat const* const format = findFormat(readableFormats(), extension))
        return *format;
    std::string const name = std::filesystem::path(path).filename().string();
    for (ReadableFormat const& format : readableFormats())
        if (std::find(format.names.begin(), format.names.end(), name) != format.names.end())
            return format;
    throw ImportError("files of this kind (." + extension +
                      ") cannot be read; these can: " + allExtensions(readableFormats(), "."));
}

// The file that the user named, and the list of the others that were read for it.
kernel::LoaderInstructions instructionsOf(std::string const& loader, std::string const& path, FileWatch const& watch)
{
    std::vector<std::string> others;
    std::unordered_set<std::string> known{path};
    for (FileStamp const& file : watch.files()) {
        if (known.insert(file.path()).second)
            others.push_back(asUtf8(std::filesystem::absolute(file.path()).string()));
    }
    kernel::LoaderInstructions result{loader, {"FILENAME_", std::filesystem::absolute(path).string()}};
    if (others.empty())
        return result;
    result.words.insert(result.words.end(), {"FILELIST_", std::to_string(others.size())});
    result.words.insert(result.words.end(), others.begin(), others.end());
    return result;
}

// Names of files in another encoding have no place in a QString, and come here with replacements.
void checkName(QString const& path)
{
    if (path.contains(QChar(QChar::ReplacementCharacter)) && !QFileInfo::exists(path))
        throw ImportError("its name is no UTF-8, so that it cannot be found; give it another one");
}

std::vector<ImportedZone> readOneFile(std::string const& path, ImportContext const& context)
{
    return formatOf(path).makeReader()->read(path, context);
}

SeriesList numberedSeries(FileGroup const& group)
{
    SeriesList list;
    for (QString const& path : group.paths) {
        SeriesEntry entry;
        entry.path = path.toStdString();
        entry.file = std::filesystem::path(entry.path).filename().string();
        entry.time = numberOf(path);
        list.push_back(std::move(entry));
    }
    return list;
}

ImportResult import(FileGroup const& group, Deferral deferral, kernel::Progress& progress, OutsidePaths outsidePaths)
{
    std::string const path = group.paths.first().toStdString();
    checkOpens(path);
    ReadableFormat const& format = formatOf(path);
    if (!format.mayBeEmpty)
        checkReadable(path);
    FileWatch watch;
    watch.add(path);
    LoadingPlan plan(deferral);
    progress.setTotal(progressSteps);
    ImportResult result;
    ImportContext const context{baseNameOf(path), watch, plan, progress, result.remarks, outsidePaths, &readOneFile};
    auto zones = group.isSeries() ? readSeries(numberedSeries(group), context) : readOneFile(path, context);
    std::transform(result.remarks.begin(), result.remarks.end(), result.remarks.begin(), asUtf8);
    watch.check();
    if (zones.empty())
        throw ImportError("it has no points");
    std::string const title =
        group.isSeries() ? group.name.toStdString() : std::filesystem::path(path).filename().string();
    result.dataSet = dataSetOf(std::move(zones), title);
    result.dataSet->loaderInstructions().push_back(instructionsOf(format.loader, path, watch));
    result.dataSet->ranges().findAll(progress);
    return result;
}

} // namespace

ImportResult importGroup(FileGroup const& group, Deferral deferral, kernel::Progress& progress,
                         OutsidePaths outsidePaths)
{
    std::string const start = "Cannot open \"" + group.paths.first().toStdString() + "\": ";
    try {
        for (QString const& path : group.paths)
            checkName(path);
        return import(group, deferral, progress, outsidePaths);
    } catch (OutsidePathsError const& error) {
        throw OutsidePathsError(start + asUtf8(error.what()) + ".", error.paths());
    } catch (ImportError const& error) {
        throw ImportError(start + asUtf8(error.what()) + ".");
    } catch (std::filesystem::filesystem_error const& error) {
        throw ImportError(start + systemReason(error.code().value()) + ".");
    } catch (std::ios_base::failure const&) { // of a stream's buffer
        throw ImportError(start + "reading it failed.");
    } catch (std::bad_alloc const&) {
        throw ImportError(start + "there is not enough memory for it.");
    } catch (std::length_error const&) {
        throw ImportError(start + "there is not enough memory for it.");
    }
}

ImportResult importFile(QString const& path, Deferral deferral, kernel::Progress& progress, OutsidePaths outsidePaths)
{
    return importGroup({{path}, {}}, deferral, progress, outsidePaths);
}

ImportResult importFile(QString const& path, Deferral deferral)
{
    kernel::Progress unwatched;
    return importFile(path, deferral, unwatched);
}

QStringList importNameFilters()
{
    QString const all = QString::fromStdString(allExtensions(readableFormats(), "*."));
    return QStringList{QStringLiteral("All data files (%1)").arg(all)} + nameFiltersOf(readableFormats()) +
           QStringList{QStringLiteral("All files (*)")};
}

} // namespace veldraw::app

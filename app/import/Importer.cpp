#include "app/import/Importer.h"

#include "app/files/PathChecks.h"
#include "app/import/ReadableFormats.h"
#include "app/import/zones/DataSetOfZones.h"

#include <filesystem>
#include <new>

namespace veldraw::app {

namespace {

constexpr std::int64_t progressSteps = 1000000;

ReadableFormat const& formatOf(std::string const& path)
{
    std::string const extension = extensionOf(path);
    if (ReadableFormat const* const format = findFormat(readableFormats(), extension))
        return *format;
    throw ImportError("files of this kind (." + extension +
                      ") cannot be read; these can: " + allExtensions(readableFormats(), "."));
}

ImportResult import(std::string const& path, Deferral deferral, kernel::Progress& progress)
{
    checkReadable(path);
    ReadableFormat const& format = formatOf(path);
    FileWatch watch;
    watch.add(path);
    LoadingPlan plan(deferral);
    progress.setTotal(progressSteps);
    ImportResult result;
    auto zones = format.makeReader()->read(path, {baseNameOf(path), watch, plan, progress, result.remarks});
    watch.check();
    if (zones.empty())
        throw ImportError("it has no points");
    result.dataSet = dataSetOf(std::move(zones), std::filesystem::path(path).filename().string());
    result.dataSet->loaderInstructions().push_back({format.loader, {"FILENAME_", path}});
    return result;
}

} // namespace

ImportResult importFile(QString const& path, Deferral deferral, kernel::Progress& progress)
{
    std::string const name = path.toStdString();
    std::string const start = "Cannot open \"" + name + "\": ";
    try {
        return import(name, deferral, progress);
    } catch (ImportError const& error) {
        throw ImportError(start + error.what() + ".");
    } catch (std::bad_alloc const&) {
        throw ImportError(start + "there is not enough memory for it.");
    }
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

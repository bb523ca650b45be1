#include "app/import/Importer.h"

#include "app/import/LoadingPlan.h"
#include "app/import/files/FileWatch.h"
#include "app/import/files/PathChecks.h"
#include "app/import/grids/VtkImport.h"
#include "app/import/metaimage/MetaImageImport.h"
#include "app/import/table/CsvReader.h"
#include "app/import/table/ScatteredTable.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <new>

namespace veldraw::app {

namespace {

constexpr std::int64_t progressSteps = 1000000;

bool isVtk(std::string const& extension)
{
    static std::array<char const*, 7> const known{"vti", "vtr", "vts", "vtu", "vtp", "vtm", "vtk"};
    return std::find(known.begin(), known.end(), extension) != known.end();
}

bool isTable(std::string const& extension)
{
    return extension == "csv" || extension == "tsv" || extension == "txt";
}

ImportResult finished(DataSetBuilder& zones, std::vector<std::string> remarks, std::string const& path,
                      char const* loader)
{
    if (zones.isEmpty())
        throw ImportError("it has no points");
    ImportResult result{zones.finish(std::filesystem::path(path).filename().string()), std::move(remarks)};
    result.dataSet->loaderInstructions().push_back({loader, {"FILENAME_", path}});
    return result;
}

ImportResult importImage(std::string const& path, FileWatch& watch, LoadingPlan& plan, kernel::Progress& progress)
{
    std::vector<std::string> remarks;
    DataSetBuilder zones;
    zones.add(MetaImageImport(watch, plan, remarks, progress).read(path, baseNameOf(path)));
    watch.check();
    return finished(zones, std::move(remarks), path, "MetaImage");
}

ImportResult import(std::string const& path, Deferral deferral, kernel::Progress& progress)
{
    progress.setTotal(progressSteps);
    checkReadable(path);
    std::string const extension = extensionOf(path);
    FileWatch watch;
    watch.add(path);
    LoadingPlan plan(deferral);
    if (isVtk(extension)) {
        VtkImport vtk(watch, plan, progress);
        vtk.read(path, extension, baseNameOf(path));
        watch.check();
        return finished(vtk.zones(), vtk.remarks(), path, "VTK");
    }
    if (extension == "mhd" || extension == "mha")
        return importImage(path, watch, plan, progress);
    if (!isTable(extension))
        throw ImportError("files of this kind (." + extension + ") cannot be read");
    CsvReader reader(progress);
    DataSetBuilder zones;
    zones.add(reader.read(path, baseNameOf(path)));
    watch.check();
    ImportResult result = finished(zones, reader.remarks(), path, "CSV");
    result.dataSet->zone(1)->isScattered = isScatteredTable(*result.dataSet);
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
    return {QStringLiteral("All data files (*.vti *.vtr *.vts *.vtu *.vtp *.vtm *.vtk *.mhd *.mha *.csv "
                           "*.tsv *.txt)"),
            QStringLiteral("VTK XML files (*.vti *.vtr *.vts *.vtu *.vtp *.vtm)"),
            QStringLiteral("VTK legacy files (*.vtk)"),
            QStringLiteral("MetaImage files (*.mhd *.mha)"),
            QStringLiteral("Text tables (*.csv *.tsv *.txt)"),
            QStringLiteral("All files (*)")};
}

} // namespace veldraw::app

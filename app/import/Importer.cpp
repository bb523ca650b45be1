#include "app/import/Importer.h"

#include "app/import/CsvReader.h"
#include "app/import/FileWatch.h"
#include "app/import/PathChecks.h"
#include "app/import/VtkImport.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <new>

namespace veldraw::app {

namespace {

bool isVtk(std::string const& extension)
{
    static std::array<char const*, 7> const known{"vti", "vtr", "vts", "vtu", "vtp", "vtm", "vtk"};
    return std::find(known.begin(), known.end(), extension) != known.end();
}

bool isTable(std::string const& extension)
{
    return extension == "csv" || extension == "tsv" || extension == "txt";
}

ImportResult finished(DataSetBuilder& zones, std::vector<std::string> remarks, std::string const& path, bool vtk)
{
    if (zones.isEmpty())
        throw ImportError("it has no points");
    ImportResult result{zones.finish(std::filesystem::path(path).filename().string()), std::move(remarks)};
    result.dataSet->loaderInstructions().push_back({vtk ? "VTK" : "CSV", {"FILENAME_", path}});
    return result;
}

ImportResult import(std::string const& path, std::function<bool(double)> const& progress)
{
    checkReadable(path);
    std::string const extension = extensionOf(path);
    FileWatch watch;
    watch.add(path);
    if (isVtk(extension)) {
        VtkImport vtk(watch, progress);
        vtk.read(path, extension, baseNameOf(path));
        watch.check();
        return finished(vtk.zones(), vtk.remarks(), path, true);
    }
    if (!isTable(extension))
        throw ImportError("files of this kind (." + extension + ") cannot be read");
    CsvReader reader(progress);
    DataSetBuilder zones;
    zones.add(reader.read(path, baseNameOf(path)));
    watch.check();
    return finished(zones, reader.remarks(), path, false);
}

} // namespace

ImportResult importFile(QString const& path, std::function<bool(double)> const& progress)
{
    std::string const name = path.toStdString();
    std::string const start = "Cannot open \"" + name + "\": ";
    try {
        return import(name, progress);
    } catch (ImportCancelled const& error) {
        throw ImportCancelled(start + error.what() + ".");
    } catch (ImportError const& error) {
        throw ImportError(start + error.what() + ".");
    } catch (std::bad_alloc const&) {
        throw ImportError(start + "there is not enough memory for it.");
    }
}

QStringList importNameFilters()
{
    return {QStringLiteral("All data files (*.vti *.vtr *.vts *.vtu *.vtp *.vtm *.vtk *.csv *.tsv *.txt)"),
            QStringLiteral("VTK XML files (*.vti *.vtr *.vts *.vtu *.vtp *.vtm)"),
            QStringLiteral("VTK legacy files (*.vtk)"), QStringLiteral("Text tables (*.csv *.tsv *.txt)"),
            QStringLiteral("All files (*)")};
}

} // namespace veldraw::app

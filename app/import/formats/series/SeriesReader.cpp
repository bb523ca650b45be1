#include "app/import/formats/series/SeriesReader.h"

#include "app/files/PathChecks.h"
#include "app/import/formats/series/SeriesList.h"

namespace veldraw::app {

std::vector<ImportedZone> SeriesReader::read(std::string const& path, ImportContext const& context)
{
    SeriesList const list =
        extensionOf(path) == "pvd" ? collectionOf(path, context.progress) : jsonSeriesOf(path, context.progress);
    if (list.empty())
        throw ImportError("it names no files");
    std::vector<std::string> names;
    for (SeriesEntry const& entry : list)
        names.push_back(entry.file);
    requireInside(path, names, context.outsidePaths);
    return readSeries(list, context);
}

} // namespace veldraw::app

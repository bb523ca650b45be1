#include "app/import/formats/vtklegacy/VtkLegacyReader.h"

#include "app/import/child/HandedObjects.h"
#include "app/import/formats/vtklegacy/LegacyHeaderCheck.h"
#include "app/import/formats/vtkxml/BlockZones.h"

#include <vtkFieldData.h>
#include <vtkMultiBlockDataSet.h>

#include <filesystem>

namespace veldraw::app {

std::vector<ImportedZone> VtkLegacyReader::read(std::string const& path, ImportContext const& context)
{
    checkLegacyHeader(path, static_cast<std::int64_t>(std::filesystem::file_size(path)), context.progress);
    ReadRequest request;
    request.what = ReadRequest::What::Legacy;
    request.path = std::filesystem::absolute(path).string();
    auto const noChoice = [](FoundArrays const&) { return ReadChoice(); };
    ReadResult const result =
        ReadingChild().read(request, ReaderLimits::forFile(path, false), noChoice, context.progress);
    for (std::string const& warning : result.data.warnings)
        context.remarks.push_back("VTK: " + warning);
    DeferredArrays nothing;
    nothing.remarks = result.data.remarks;
    auto const object = objectOf(result);
    std::vector<ImportedZone> zones;
    addZonesOf(object, context.title, nothing, context.remarks, zones, context.progress);
    if (vtkMultiBlockDataSet::SafeDownCast(object) && !zones.empty())
        addNotesOnDataSet(*object->GetFieldData(), context.remarks, zones.front());
    return zones;
}

} // namespace veldraw::app

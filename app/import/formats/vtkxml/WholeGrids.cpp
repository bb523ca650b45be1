#include "app/import/formats/vtkxml/WholeGrids.h"

#include "app/import/child/HandedObjects.h"
#include "app/import/formats/vtkxml/BlockZones.h"

#include <vtkFieldData.h>
#include <vtkMultiBlockDataSet.h>

namespace veldraw::app {

vtkSmartPointer<vtkDataObject> readWholeFile(ReadRequest const& request, ReaderLimits const& limits,
                                             ImportContext const& context, std::vector<std::string>& remarks)
{
    auto const noChoice = [](FoundArrays const&) { return ReadChoice(); };
    ReadResult const result = ReadingChild().read(request, limits, noChoice, context.progress);
    for (std::string const& warning : result.data.warnings)
        context.remarks.push_back("VTK: " + warning);
    remarks.insert(remarks.end(), result.data.remarks.begin(), result.data.remarks.end());
    return objectOf(result);
}

std::vector<ImportedZone> zonesOfGrids(vtkDataObject* object, std::vector<std::string> const& remarks,
                                       ImportContext const& context)
{
    DeferredArrays nothing;
    nothing.remarks = remarks;
    std::vector<ImportedZone> zones;
    addZonesOf(object, context.title, nothing, context.remarks, zones, context.progress);
    if (vtkMultiBlockDataSet::SafeDownCast(object) && !zones.empty())
        addNotesOnDataSet(*object->GetFieldData(), context.remarks, zones.front());
    return zones;
}

std::vector<ImportedZone> zonesOfWholeFile(ReadRequest const& request, ImportContext const& context)
{
    std::vector<std::string> remarks;
    auto const object = readWholeFile(request, ReaderLimits::forFile(request.path, false), context, remarks);
    return zonesOfGrids(object, remarks, context);
}

} // namespace veldraw::app

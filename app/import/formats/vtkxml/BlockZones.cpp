#include "app/import/formats/vtkxml/BlockZones.h"

#include "app/files/ImportError.h"
#include "app/import/formats/vtkxml/BlockImport.h"
#include "app/import/formats/vtkxml/FieldDataItems.h"

#include <vtkCompositeDataSet.h>
#include <vtkInformation.h>
#include <vtkMultiBlockDataSet.h>

namespace veldraw::app {

void addZonesOf(vtkDataObject* object, std::string const& name, DeferredArrays const& deferred,
                std::vector<std::string>& remarks, std::vector<ImportedZone>& zones, kernel::Progress& progress)
{
    auto* const block = vtkDataSet::SafeDownCast(object);
    if (!object || (block && BlockImport::pointCountOf(*block, deferred) == 0)) {
        remarks.push_back("Block \"" + name + "\" has no points and was left out");
        return;
    }
    if (block) {
        zones.push_back(BlockImport(*block, name, deferred, remarks, progress).run());
        return;
    }
    auto* const blocks = vtkMultiBlockDataSet::SafeDownCast(object);
    if (!blocks)
        throw ImportError("it contains a " + std::string(object->GetClassName()) + ", which is no grid");
    for (unsigned int n = 0; n < blocks->GetNumberOfBlocks(); ++n) {
        progress.check();
        if (!blocks->GetBlock(n))
            continue;
        bool const named = blocks->HasMetaData(n) && blocks->GetMetaData(n)->Has(vtkCompositeDataSet::NAME());
        addZonesOf(blocks->GetBlock(n),
                   named ? blocks->GetMetaData(n)->Get(vtkCompositeDataSet::NAME())
                         : name + " " + std::to_string(n + 1),
                   {}, remarks, zones, progress);
    }
}

void addNotesOnDataSet(vtkFieldData& fieldData, std::vector<std::string>& remarks, ImportedZone& zone)
{
    auto const remark = [&remarks](std::string const& text) { remarks.push_back("Data set: " + text); };
    FieldDataItems const notes = FieldDataItems::of(fieldData, {});
    zone.notesOnDataSet = notes.items.data();
    addMissing(zone.notesOnDataSet, notes.ofDataSet.data());
    for (auto const& [variable, items] : notes.ofVariables)
        addMissing(zone.notesOnVariables[variable], items.data());
    for (std::string const& text : notes.remarks())
        remark(text);
    if (!notes.others.empty())
        remark(remarkOnFieldData(notes.others));
}

} // namespace veldraw::app

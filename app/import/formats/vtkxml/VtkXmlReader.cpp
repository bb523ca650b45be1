#include "app/import/formats/vtkxml/VtkXmlReader.h"

#include "app/files/PathChecks.h"
#include "app/import/formats/vtkxml/BlockImport.h"
#include "app/import/formats/vtkxml/GridArrays.h"
#include "app/import/formats/vtkxml/MultiBlockFile.h"
#include "app/import/formats/vtkxml/VtkFile.h"

#include <vtkCompositeDataSet.h>
#include <vtkInformation.h>
#include <vtkMultiBlockDataSet.h>

namespace veldraw::app {

namespace {

void addBlock(vtkDataObject* object, std::string const& name, DeferredArrays const& deferred,
              std::vector<std::string>& remarks, std::vector<ImportedZone>& zones)
{
    auto* const block = vtkDataSet::SafeDownCast(object);
    if (!object || (block && BlockImport::pointCountOf(*block, deferred) == 0)) {
        remarks.push_back("Block \"" + name + "\" has no points and was left out");
        return;
    }
    if (block) {
        zones.push_back(BlockImport(*block, name, deferred, remarks).run());
        return;
    }
    auto* const blocks = vtkMultiBlockDataSet::SafeDownCast(object);
    if (!blocks)
        throw ImportError("it contains a " + std::string(object->GetClassName()) + ", which is no grid");
    for (unsigned int n = 0; n < blocks->GetNumberOfBlocks(); ++n) {
        if (!blocks->GetBlock(n))
            continue;
        bool const named = blocks->HasMetaData(n) && blocks->GetMetaData(n)->Has(vtkCompositeDataSet::NAME());
        addBlock(blocks->GetBlock(n),
                 named ? blocks->GetMetaData(n)->Get(vtkCompositeDataSet::NAME()) : name + " " + std::to_string(n + 1),
                 {}, remarks, zones);
    }
}

void readGrid(std::string const& path, ImportContext const& context, std::vector<ImportedZone>& zones)
{
    DeferredArrays deferred;
    auto const grid = readVtkFile(path, context, deferred);
    addBlock(grid, context.title, deferred, context.remarks, zones);
}

void checkPiece(std::string const& path)
{
    std::string const extension = extensionOf(path);
    if (extension.size() != 3 || extension.compare(0, 2, "vt") != 0 ||
        std::string("irsup").find(extension[2]) == std::string::npos)
        throw ImportError("files of this kind cannot be parts");
    checkReadable(path);
}

// All pieces are loaded or the most important of each, instead of all of the first ones and nothing of the last.
void planFor(std::vector<MultiBlockPiece> const& pieces, LoadingPlan& plan)
{
    if (plan.deferral() != Deferral::Auto)
        return;
    double bytes = 0.0;
    for (MultiBlockPiece const& piece : pieces) {
        try {
            checkPiece(piece.path);
            bytes += GridArrays(piece.path, extensionOf(piece.path)).bytesToLoad(plan);
        } catch (ImportError const&) {
            // It is told with the piece's name when the piece is read.
        }
    }
    plan.setTotal(bytes);
}

void readPieces(std::string const& path, ImportContext const& context, std::vector<ImportedZone>& zones)
{
    auto const pieces = multiBlockPieces(path);
    planFor(pieces, context.plan);
    for (std::size_t n = 0; n < pieces.size(); ++n) {
        MultiBlockPiece const& piece = pieces[n];
        kernel::Progress ofPiece(context.progress, context.progress.total() / static_cast<std::int64_t>(pieces.size()));
        std::string const name = piece.name.empty() ? "Zone " + std::to_string(n + 1) : piece.name;
        try {
            checkPiece(piece.path);
            context.watch.add(piece.path);
            readGrid(piece.path, {name, context.watch, context.plan, ofPiece, context.remarks}, zones);
        } catch (ImportError const& error) {
            throw ImportError("its part \"" + piece.file + "\": " + error.what());
        }
    }
}

} // namespace

std::vector<ImportedZone> VtkXmlReader::read(std::string const& path, ImportContext const& context)
{
    std::vector<ImportedZone> zones;
    if (extensionOf(path) == "vtm")
        readPieces(path, context, zones);
    else
        readGrid(path, context, zones);
    return zones;
}

} // namespace veldraw::app

#include "app/import/formats/vtkxml/VtkXmlReader.h"

#include "app/files/PathChecks.h"
#include "app/import/formats/vtkxml/BlockZones.h"
#include "app/import/formats/vtkxml/GridArrays.h"
#include "app/import/formats/vtkxml/PieceList.h"
#include "app/import/formats/vtkxml/VtkFile.h"

#include <vtkFieldData.h>

namespace veldraw::app {

namespace {

void readGrid(std::string const& path, ImportContext const& context, std::vector<ImportedZone>& zones)
{
    DeferredArrays deferred;
    auto const grid = readVtkFile(path, context, deferred);
    addZonesOf(grid, context.title, deferred, context.remarks, zones, context.progress);
}

std::vector<std::string> namesOf(std::vector<GridPiece> const& pieces)
{
    std::vector<std::string> names;
    for (GridPiece const& piece : pieces)
        names.push_back(piece.file);
    return names;
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
void planFor(std::vector<GridPiece> const& pieces, LoadingPlan& plan, kernel::Progress& progress)
{
    if (plan.deferral() != Deferral::Auto)
        return;
    double bytes = 0.0;
    for (GridPiece const& piece : pieces) {
        progress.check();
        try {
            checkPiece(piece.path);
            bytes += GridArrays(piece.path, extensionOf(piece.path), progress).bytesToLoad(plan);
        } catch (ImportError const&) {
            // It is told with the piece's name when the piece is read.
        }
    }
    plan.setTotal(bytes);
}

// Field data that cannot be read keep nobody from the zones.
void readNotesOnDataSet(std::string const& path, ImportContext const& context, ImportedZone& zone)
{
    try {
        auto const object = readVtkFieldData(path, context);
        addNotesOnDataSet(*object->GetFieldData(), context.remarks, zone);
    } catch (ImportError const& error) {
        context.remarks.push_back(std::string("Data set: its field data were left out: ") + error.what());
    }
}

void readPieces(std::string const& path, PieceList const& list, ImportContext const& context,
                std::vector<ImportedZone>& zones)
{
    auto const& [pieces, hasFieldData] = list;
    requireInside(path, namesOf(pieces), context.outsidePaths);
    planFor(pieces, context.plan, context.progress);
    for (std::size_t n = 0; n < pieces.size(); ++n) {
        GridPiece const& piece = pieces[n];
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
    if (hasFieldData && !zones.empty())
        readNotesOnDataSet(path, context, zones.front());
}

} // namespace

std::vector<ImportedZone> VtkXmlReader::read(std::string const& path, ImportContext const& context)
{
    std::vector<ImportedZone> zones;
    std::string const extension = extensionOf(path);
    if (extension == "vtm")
        readPieces(path, multiBlockPieces(path, context.progress), context, zones);
    else if (extension.front() == 'p')
        readPieces(path, parallelPieces(path, context), context, zones);
    else
        readGrid(path, context, zones);
    return zones;
}

} // namespace veldraw::app

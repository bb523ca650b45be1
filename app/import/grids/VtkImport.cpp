#include "app/import/grids/VtkImport.h"

#include "app/import/ImportError.h"
#include "app/import/files/PathChecks.h"
#include "app/import/grids/BlockImport.h"
#include "app/import/grids/GridArrays.h"
#include "app/import/grids/VtkFile.h"
#include "app/import/legacy/LegacyConversion.h"
#include "app/import/legacy/LegacyHeaderCheck.h"

#include <vtkCompositeDataSet.h>
#include <vtkInformation.h>
#include <vtkMultiBlockDataSet.h>

#include <filesystem>

namespace veldraw::app {

namespace {

constexpr double legacyShare = 0.7; // of the time for a legacy file, until it is XML

void checkPiece(std::string const& path)
{
    std::string const extension = extensionOf(path);
    if (extension.size() != 3 || extension.compare(0, 2, "vt") != 0 ||
        std::string("irsup").find(extension[2]) == std::string::npos)
        throw ImportError("files of this kind cannot be parts");
    checkReadable(path);
}

} // namespace

VtkImport::VtkImport(FileWatch& watch, LoadingPlan& plan, kernel::Progress& progress)
    : m_watch(watch)
    , m_plan(plan)
    , m_progress(progress)
{
}

void VtkImport::read(std::string const& path, std::string const& extension, std::string const& title)
{
    read(path, extension, title, m_progress);
}

void VtkImport::read(std::string const& path, std::string const& extension, std::string const& title,
                     kernel::Progress& progress)
{
    if (extension == "vtm")
        readPieces(path, progress);
    else if (extension == "vtk")
        readLegacy(path, title, progress);
    else
        readGrid(path, extension, title, progress);
}

void VtkImport::readLegacy(std::string const& path, std::string const& title, kernel::Progress& progress)
{
    checkLegacyHeader(path, static_cast<std::int64_t>(std::filesystem::file_size(path)));
    auto const unitsOfConversion = static_cast<std::int64_t>(legacyShare * static_cast<double>(progress.total()));
    auto ofConversion = std::make_unique<kernel::Progress>(progress, unitsOfConversion);
    LegacyConversion const conversion(path, *ofConversion, m_remarks);
    ofConversion.reset();
    kernel::Progress ofGrids(progress, progress.total() - unitsOfConversion);
    std::string const file = conversion.outputFile();
    m_mayDefer = false;
    read(file, extensionOf(file), title, ofGrids);
}

void VtkImport::readPieces(std::string const& path, kernel::Progress& progress)
{
    auto const pieces = multiBlockPieces(path);
    planFor(pieces);
    for (std::size_t n = 0; n < pieces.size(); ++n) {
        MultiBlockPiece const& piece = pieces[n];
        kernel::Progress ofPiece(progress, progress.total() / static_cast<std::int64_t>(pieces.size()));
        try {
            readPiece(piece, piece.name.empty() ? "Zone " + std::to_string(n + 1) : piece.name, ofPiece);
        } catch (ImportError const& error) {
            throw ImportError("its part \"" + piece.file + "\": " + error.what());
        }
    }
}

// All pieces are loaded or the most important of each, instead of all of the first ones and nothing of the last.
void VtkImport::planFor(std::vector<MultiBlockPiece> const& pieces)
{
    if (m_plan.deferral() != Deferral::Auto)
        return;
    double bytes = 0.0;
    for (MultiBlockPiece const& piece : pieces) {
        try {
            checkPiece(piece.path);
            bytes += GridArrays(piece.path, extensionOf(piece.path)).bytesToLoad(m_plan);
        } catch (ImportError const&) {
            // It is told with the piece's name when the piece is read.
        }
    }
    m_plan.setTotal(bytes);
}

void VtkImport::readPiece(MultiBlockPiece const& piece, std::string const& name, kernel::Progress& progress)
{
    checkPiece(piece.path);
    m_watch.add(piece.path);
    readGrid(piece.path, extensionOf(piece.path), name, progress);
}

void VtkImport::readGrid(std::string const& path, std::string const& extension, std::string const& name,
                         kernel::Progress& progress)
{
    DeferredArrays deferred;
    auto const grid = readVtkFile(path, extension, progress, m_remarks, m_mayDefer ? &m_plan : nullptr, deferred);
    add(grid, name, deferred);
}

void VtkImport::add(vtkDataObject* object, std::string const& name, DeferredArrays const& deferred)
{
    auto* const block = vtkDataSet::SafeDownCast(object);
    if (!object || (block && BlockImport::pointCountOf(*block, deferred) == 0)) {
        m_remarks.push_back("Block \"" + name + "\" has no points and was left out");
        return;
    }
    if (block) {
        m_zones.add(BlockImport(*block, name, deferred, m_remarks).run());
        return;
    }
    auto* const blocks = vtkMultiBlockDataSet::SafeDownCast(object);
    if (!blocks)
        throw ImportError("it contains a " + std::string(object->GetClassName()) + ", which is no grid");
    for (unsigned int n = 0; n < blocks->GetNumberOfBlocks(); ++n) {
        if (!blocks->GetBlock(n))
            continue;
        bool const named = blocks->HasMetaData(n) && blocks->GetMetaData(n)->Has(vtkCompositeDataSet::NAME());
        add(blocks->GetBlock(n),
            named ? blocks->GetMetaData(n)->Get(vtkCompositeDataSet::NAME()) : name + " " + std::to_string(n + 1), {});
    }
}

} // namespace veldraw::app

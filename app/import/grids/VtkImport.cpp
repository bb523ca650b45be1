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

VtkImport::VtkImport(FileWatch& watch, LoadingPlan& plan, std::function<bool(double)> progress)
    : m_watch(watch)
    , m_plan(plan)
    , m_progress(std::move(progress))
{
}

void VtkImport::read(std::string const& path, std::string const& extension, std::string const& title)
{
    if (extension == "vtm") {
        readPieces(path);
        return;
    }
    if (extension == "vtk")
        readLegacy(path, title);
    else
        readGrid(path, extension, title);
}

void VtkImport::readLegacy(std::string const& path, std::string const& title)
{
    checkLegacyHeader(path, static_cast<std::int64_t>(std::filesystem::file_size(path)));
    auto const all = m_progress;
    auto const partOf = [&all](double start, double size) -> std::function<bool(double)> {
        if (!all)
            return {};
        return [&all, start, size](double done) { return all(start + size * done); };
    };
    LegacyConversion const conversion(path, partOf(0.0, legacyShare), m_remarks);
    m_progress = partOf(legacyShare, 1.0 - legacyShare);
    std::string const file = conversion.outputFile();
    m_mayDefer = false;
    read(file, extensionOf(file), title);
    m_progress = all;
}

void VtkImport::readPieces(std::string const& path)
{
    auto const pieces = multiBlockPieces(path);
    planFor(pieces);
    auto const all = m_progress;
    for (std::size_t n = 0; n < pieces.size(); ++n) {
        MultiBlockPiece const& piece = pieces[n];
        if (all) {
            double const count = static_cast<double>(pieces.size());
            m_progress = [=](double done) { return all((static_cast<double>(n) + done) / count); };
        }
        try {
            readPiece(piece.path, extensionOf(piece.path),
                      piece.name.empty() ? "Zone " + std::to_string(n + 1) : piece.name);
        } catch (ImportCancelled const&) {
            throw;
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

void VtkImport::readPiece(std::string const& path, std::string const& extension, std::string const& name)
{
    checkPiece(path);
    m_watch.add(path);
    readGrid(path, extension, name);
}

void VtkImport::readGrid(std::string const& path, std::string const& extension, std::string const& name)
{
    DeferredArrays deferred;
    auto const grid = readVtkFile(path, extension, m_progress, m_remarks, m_mayDefer ? &m_plan : nullptr, deferred);
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

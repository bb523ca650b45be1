#pragma once

#include "app/import/DataSetBuilder.h"
#include "app/import/LoadingPlan.h"
#include "app/import/files/FileWatch.h"
#include "app/import/grids/DeferredArray.h"
#include "app/import/grids/MultiBlockFile.h"
#include "kernel/compute/Progress.h"

#include <vtkDataObject.h>

#include <string>
#include <vector>

namespace veldraw::app {

/// Imports VTK files block by block.
class VtkImport
{
public:
    /// @param watch gets the pieces of multi-block files
    /// @param plan  decides what is loaded at once
    VtkImport(FileWatch& watch, LoadingPlan& plan, kernel::Progress& progress);

    /// @param extension lower case, without the dot
    /// @param title     name of a zone that the file does not name
    /// @throws ImportError, kernel::Interrupted
    void read(std::string const& path, std::string const& extension, std::string const& title);

    DataSetBuilder& zones() { return m_zones; }
    std::vector<std::string> const& remarks() const { return m_remarks; }

private:
    void read(std::string const& path, std::string const& extension, std::string const& title,
              kernel::Progress& progress);
    void readLegacy(std::string const& path, std::string const& title, kernel::Progress& progress);
    void readPieces(std::string const& path, kernel::Progress& progress);
    void planFor(std::vector<MultiBlockPiece> const& pieces);
    void readPiece(MultiBlockPiece const& piece, std::string const& name, kernel::Progress& progress);
    void readGrid(std::string const& path, std::string const& extension, std::string const& name,
                  kernel::Progress& progress);
    void add(vtkDataObject* object, std::string const& name, DeferredArrays const& deferred);

    FileWatch& m_watch;
    LoadingPlan& m_plan;
    bool m_mayDefer = true; // what was converted into a temporary file cannot be read again
    kernel::Progress& m_progress;
    DataSetBuilder m_zones;
    std::vector<std::string> m_remarks;
};

} // namespace veldraw::app

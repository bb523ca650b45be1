#pragma once

#include "app/import/DataSetBuilder.h"
#include "app/import/LoadingPlan.h"
#include "app/import/files/FileWatch.h"
#include "app/import/grids/DeferredArray.h"
#include "app/import/grids/MultiBlockFile.h"

#include <vtkDataObject.h>

#include <functional>
#include <string>
#include <vector>

namespace veldraw::app {

/// Imports VTK files block by block.
class VtkImport
{
public:
    /// @param watch gets the pieces of multi-block files
    /// @param plan  decides what is loaded at once
    VtkImport(FileWatch& watch, LoadingPlan& plan, std::function<bool(double)> progress);

    /// @param extension lower case, without the dot
    /// @param title     name of a zone that the file does not name
    /// @throws ImportError
    void read(std::string const& path, std::string const& extension, std::string const& title);

    DataSetBuilder& zones() { return m_zones; }
    std::vector<std::string> const& remarks() const { return m_remarks; }

private:
    void readLegacy(std::string const& path, std::string const& title);
    void readPieces(std::string const& path);
    void planFor(std::vector<MultiBlockPiece> const& pieces);
    void readPiece(std::string const& path, std::string const& extension, std::string const& name);
    void readGrid(std::string const& path, std::string const& extension, std::string const& name);
    void add(vtkDataObject* object, std::string const& name, DeferredArrays const& deferred);

    FileWatch& m_watch;
    LoadingPlan& m_plan;
    bool m_mayDefer = true; // what was converted into a temporary file cannot be read again
    std::function<bool(double)> m_progress;
    DataSetBuilder m_zones;
    std::vector<std::string> m_remarks;
};

} // namespace veldraw::app

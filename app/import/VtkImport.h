#pragma once

#include "app/import/DataSetBuilder.h"
#include "app/import/FileWatch.h"

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
    VtkImport(FileWatch& watch, std::function<bool(double)> progress);

    /// @param extension lower case, without the dot
    /// @param title     name of a zone that the file does not name
    /// @throws ImportError
    void read(std::string const& path, std::string const& extension, std::string const& title);

    DataSetBuilder& zones() { return m_zones; }
    std::vector<std::string> const& remarks() const { return m_remarks; }

private:
    void readLegacy(std::string const& path, std::string const& title);
    void readPieces(std::string const& path);
    void readPiece(std::string const& path, std::string const& extension, std::string const& name);
    void add(vtkDataObject* object, std::string const& name);

    FileWatch& m_watch;
    std::function<bool(double)> m_progress;
    DataSetBuilder m_zones;
    std::vector<std::string> m_remarks;
};

} // namespace veldraw::app

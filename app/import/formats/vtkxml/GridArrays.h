#pragma once

#include "app/files/FileStamp.h"
#include "app/import/formats/vtkxml/DeferredArray.h"
#include "app/import/raw/RawArray.h"
#include "app/import/reading/LoadingPlan.h"
#include "app/import/xml/XmlArrayList.h"

#include <optional>
#include <string>

namespace veldraw::app {

/// The arrays of a VTK XML file with one grid, and what it takes to bring them.
class GridArrays
{
public:
    /// @param extension lower case, without the dot
    /// @param progress outlives this; its interrupt ends whatever is read here
    /// @throws ImportError when the file cannot be read; kernel::Interrupted
    GridArrays(std::string const& path, std::string const& extension, kernel::Progress& progress);

    FileStamp const& file() const { return m_file; }
    std::string const& extension() const { return m_extension; }
    XmlArrayList const& list() const { return m_list; }

    /// Uniform and rectilinear grids: the coordinates of their points are computed.
    bool storesNoPoints() const { return m_extension == "vti" || m_extension == "vtr"; }
    double bytesOfComputedCoordinates() const;

    /// An array with a type and an offset, as its loader wants it.
    RawArray rawArray(XmlArrayList::Array const& array) const;
    bool canBeMapped(XmlArrayList::Array const& array) const;

    /// Cells of a mesh that can be read later: they stand uncompressed in the file, and all of them are plain ones. Reads the
    /// types of the cells.
    std::optional<DeferredCells> plainCells() const;

    /// Memory for the cells of such a mesh, 0 for others.
    double bytesOfCells() const;

    /// Memory for all that is loaded when there is enough; what is mapped, and coordinates that are not computed unasked, are
    /// left out.
    double bytesToLoad(LoadingPlan const& plan) const;

private:
    XmlArrayList::Array const* cellTypes() const;

    kernel::Progress& m_progress;
    FileStamp m_file;
    std::string m_extension;
    XmlArrayList m_list;
};

} // namespace veldraw::app

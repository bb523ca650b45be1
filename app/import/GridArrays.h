#pragma once

#include "app/import/FileStamp.h"
#include "app/import/LoadingPlan.h"
#include "app/import/RawArray.h"
#include "app/import/XmlArrayList.h"

#include <string>

namespace veldraw::app {

/// The arrays of a VTK XML file with one grid, and what it takes to bring them.
class GridArrays
{
public:
    /// @param extension lower case, without the dot
    /// @throws ImportError when the file cannot be read
    GridArrays(std::string const& path, std::string const& extension);

    FileStamp const& file() const { return m_file; }
    std::string const& extension() const { return m_extension; }
    XmlArrayList const& list() const { return m_list; }

    /// Uniform and rectilinear grids: the coordinates of their points are computed.
    bool storesNoPoints() const { return m_extension == "vti" || m_extension == "vtr"; }
    double bytesOfComputedCoordinates() const;

    /// An array with a type and an offset, as its loader wants it.
    RawArray rawArray(XmlArrayList::Array const& array) const;
    bool canBeMapped(XmlArrayList::Array const& array) const;

    /// Memory for all that is loaded when there is enough; what is mapped, and coordinates that are not computed unasked, are
    /// left out.
    double bytesToLoad(LoadingPlan const& plan) const;

private:
    FileStamp m_file;
    std::string m_extension;
    XmlArrayList m_list;
};

} // namespace veldraw::app

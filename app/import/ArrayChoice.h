#pragma once

#include "app/import/DeferredArray.h"
#include "app/import/FileStamp.h"
#include "app/import/LoadingPlan.h"
#include "app/import/RawArray.h"
#include "app/import/VtkFile.h"
#include "app/import/XmlArrayList.h"

#include <vtkDataArraySelection.h>
#include <vtkXMLReader.h>

#include <string>
#include <vector>

namespace veldraw::app {

/// Chooses the arrays of a VTK XML file that its reader is to read now, coordinates included, and describes the others.
///
/// Files whose pieces have different arrays, and files with two arrays of one name in a section, are read whole.
class ArrayChoice
{
public:
    /// @param reader has read the file's header (UpdateInformation())
    ArrayChoice(vtkXMLReader& reader, std::string const& path, std::string const& extension, LoadingPlan& plan);

    /// Switches arrays of the reader off and adds them to @p deferred.
    void run(DeferredArrays& deferred);

private:
    using Arrays = std::vector<XmlArrayList::Array>;

    double bytesOfAll() const;
    double bytesOfComputedCoordinates() const;
    void choosePoints(DeferredArrays& deferred);
    std::vector<DeferredArray> choose(vtkDataArraySelection& selection, Arrays const& arrays, XmlSection section);
    DeferredArray described(XmlArrayList::Array const& array, std::string const& name, XmlSection section) const;
    RawArray rawArray(XmlArrayList::Array const& array) const;
    bool canBeMapped(XmlArrayList::Array const& array) const;

    vtkXMLReader& m_reader;
    FileStamp m_file;
    std::string m_extension;
    LoadingPlan& m_plan;
    XmlArrayList m_list;
};

} // namespace veldraw::app

#pragma once

#include "app/export/formats/vtkxml/ArrayPlan.h"
#include "kernel/base/Progress.h"
#include "kernel/data/DataSet.h"

#include <vtkDataSet.h>
#include <vtkSmartPointer.h>

#include <string>
#include <vector>

namespace veldraw::app {

/// Writes zones as VTK XML, values raw as they are in memory, in the arrays that they came in as far as these are still whole, and
/// with what our import needs to bring the zones back as they were.
class ZoneFileWriter
{
public:
    enum class Notes
    {
        OfZone,   ///< a file has the auxiliary data of its zone
        OfDataSet ///< and of all else
    };

    /// @param dataSet is to outlive the object
    /// @param notes   what the files have besides the zones
    ZoneFileWriter(kernel::DataSet const& dataSet, Notes notes);

    /// Extension of the format that fits any zone of the kind of @p zone: vts or vtu.
    static std::string usualFormat(kernel::Zone const& zone);

    /// Extension of the format for a zone beside others: vtp where it came from such a file and still fits into one.
    static std::string pieceFormat(kernel::Zone const& zone);

    /// Writes one zone. @param zone one-based; @param format vti, vts, vtu or vtp; @param path file to write over
    /// @param progress hears how much of it is written
    /// @throws ExportError the format does not fit the zone, or the file cannot be written; kernel::Interrupted
    void write(int zone, std::string const& format, std::string const& path, kernel::Progress& progress) const;

private:
    vtkSmartPointer<vtkDataSet> gridOf(int zone) const;
    void addArray(vtkDataSet& grid, int zone, PlannedArray const& planned) const;
    std::vector<int> purposesOf(int zone, PlannedArray const& planned) const;
    void addArrayFacts(vtkDataSet& grid, int zone, std::vector<PlannedArray> const& arrays) const;
    void addFacts(vtkDataSet& grid, kernel::Zone const& zone, std::vector<std::string> const& coordinateNames) const;

    kernel::DataSet const& m_dataSet;
    Notes m_notes;
    std::vector<std::string> m_names; // of the variables, each once
    ArrayPlan m_plan;
};

} // namespace veldraw::app

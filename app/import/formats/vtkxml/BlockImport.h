#pragma once

#include "app/import/cells/ImportedCells.h"
#include "app/import/formats/vtkxml/BlockArrays.h"
#include "app/import/formats/vtkxml/BlockFacts.h"
#include "app/import/formats/vtkxml/DeferredArray.h"
#include "app/import/zones/ImportedZone.h"

#include <vtkDataSet.h>

#include <string>
#include <vector>

namespace veldraw::app {

class CellLoader;

/// Makes a zone of one VTK data set. Arrays are adopted: the data set is not to be changed afterwards.
class BlockImport
{
public:
    /// @param block   vtkImageData, vtkRectilinearGrid, vtkStructuredGrid, vtkUnstructuredGrid or vtkPolyData with points
    /// @param name    name of the zone, unless the block's field data name it
    /// @param deferred arrays that are not in the block, because they are to be loaded later
    /// @param remarks takes sentences for the user
    /// @param progress whose interrupt ends the work; it advances no further
    BlockImport(vtkDataSet& block, std::string const& name, DeferredArrays const& deferred,
                std::vector<std::string>& remarks, kernel::Progress& progress);

    /// @throws ImportError damaged blocks, blocks of other kinds; kernel::Interrupted
    ImportedZone run();

    /// Points of a block, also where it leaves their coordinates in the file.
    static std::int64_t pointCountOf(vtkDataSet& block, DeferredArrays const& deferred);

private:
    void makeZone();
    void makeMesh();
    void addNotes();
    std::int64_t cellCount() const;
    void addCoordinates();
    void addComputedCoordinates();
    void addPointCoordinates(vtkDataArray& points);
    void addDeferredPoints(DeferredArray const& points);
    void addCoordinate(int axis, std::shared_ptr<kernel::ShareGroup> values);
    void addArrays();
    void hide(kernel::Blanking::Marks const& marks);
    void remark(std::string const& text);

    vtkDataSet& m_block;
    std::string m_name;
    std::int64_t m_pointCount;
    DeferredArrays const& m_deferred;
    std::vector<std::string>& m_remarks;
    kernel::Progress m_progress; // counts for nothing
    BlockFacts m_facts;
    ImportedCells m_cells;
    std::shared_ptr<CellLoader> m_cellLoader; // of cells that are left in the file
    ImportedZone m_result;
};

} // namespace veldraw::app

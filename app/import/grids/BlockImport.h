#pragma once

#include "app/import/ImportedZone.h"
#include "app/import/cells/ImportedCells.h"
#include "app/import/grids/ArrangedLoader.h"
#include "app/import/grids/BlockFacts.h"
#include "app/import/grids/DeferredArray.h"

#include <vtkDataSet.h>
#include <vtkDataSetAttributes.h>

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
    BlockImport(vtkDataSet& block, std::string const& name, DeferredArrays const& deferred,
                std::vector<std::string>& remarks);

    /// @throws ImportError damaged blocks, blocks of other kinds
    ImportedZone run();

    /// Points of a block, also where it leaves their coordinates in the file.
    static std::int64_t pointCountOf(vtkDataSet& block, DeferredArrays const& deferred);

private:
    void makeZone();
    void makeMesh();
    std::int64_t cellCount() const;
    void addCoordinates();
    void addPointArrays();
    void addCellArrays();
    void addCellArray(vtkDataArray& array);
    void addPointArray(vtkDataArray& array);
    void takeCellMarks(vtkDataArray& marks);
    void finishBlanking();
    void addCellArray(DeferredArray const& array);
    void addFields(vtkDataArray& array, ValueLocation_e location);
    void addFields(DeferredArray const& array, std::int64_t tuples, ValueLocation_e location,
                   ArrangedLoader::Arrange const& arrange);
    void remarkLeftOut(std::string const& name);
    void addComputedCoordinates();
    void addPointCoordinates(vtkDataArray& points);
    void addDeferredPoints(DeferredArray const& points);
    void addCoordinate(int axis, std::shared_ptr<kernel::ShareGroup> values);
    std::shared_ptr<kernel::ShareGroup> deferredGroup(DeferredArray const& array, int component, std::int64_t tuples,
                                                      ValueLocation_e location,
                                                      ArrangedLoader::Arrange const& arrange) const;
    void checkTuples(vtkDataArray& array, std::int64_t expected, char const* what) const;
    void remark(std::string const& text);

    vtkDataSet& m_block;
    std::string m_name;
    std::int64_t m_pointCount;
    DeferredArrays const& m_deferred;
    std::vector<std::string>& m_remarks;
    BlockFacts m_facts;
    ImportedCells m_cells;
    std::shared_ptr<CellLoader> m_cellLoader; // of cells that are left in the file
    kernel::Blanking::Marks m_marks;
    ImportedZone m_result;
};

} // namespace veldraw::app

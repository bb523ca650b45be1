#pragma once

#include "app/import/cells/ImportedCells.h"
#include "app/import/formats/vtkxml/BlockFacts.h"
#include "app/import/formats/vtkxml/DeferredArray.h"
#include "app/import/zones/ImportedZone.h"
#include "kernel/base/Progress.h"
#include "kernel/data/Blanking.h"

#include <vtkDataArray.h>
#include <vtkDataSetAttributes.h>

#include <string>
#include <vector>

namespace veldraw::app {

/// Makes fields of the arrays of a VTK data set, those that have been read and those that are left in the file, one after the other
/// as the file has them. Marks of what is hidden become no fields, but are kept.
class BlockArrays
{
public:
    /// What the arrays are of.
    struct Block
    {
        std::string name; ///< for messages
        std::int64_t pointCount;
        std::int64_t cellCount; ///< as the file counts them
        ImportedCells const& cells;
        BlockFacts const& facts;
        kernel::Progress& progress; ///< whose interrupt ends the work
    };

    /// @param zone    has its dimensions and gets the fields
    /// @param remarks take sentences for the user
    BlockArrays(Block const& block, ImportedZone& zone, std::vector<std::string>& remarks);

    /// @throws ImportError an array has another number of values than there are points; kernel::Interrupted
    void addPointArrays(vtkDataSetAttributes& read, std::vector<DeferredArray> const& deferred);

    /// @throws ImportError an array has another number of values than there are cells; kernel::Interrupted
    void addCellArrays(vtkDataSetAttributes& read, std::vector<DeferredArray> const& deferred);

    /// Of the points and cells of the zone.
    kernel::Blanking::Marks const& marks() const { return m_marks; }

private:
    using Purposes = std::vector<std::string>; // for which the file names an array

    void addPointArray(vtkDataArray& array, Purposes const& purposes);
    void addCellArray(vtkDataArray& array, Purposes const& purposes);
    void addCellArray(DeferredArray const& array);
    void addFields(vtkDataArray& array, Purposes const& purposes, ValueLocation_e location);
    void addFields(DeferredArray const& array, std::int64_t tuples, ValueLocation_e location,
                   DeferredArray::Arrangement const& arrange);
    void takeCellMarks(vtkDataArray& marks);
    void remarkLeftOut(std::string const& array);
    void checkTuples(vtkDataArray& array, std::int64_t expected, char const* what) const;

    Block m_block;
    ImportedZone& m_zone;
    std::vector<std::string>& m_remarks;
    kernel::Blanking::Marks m_marks;
};

} // namespace veldraw::app

#pragma once

#include "app/handover/HandedGrid.h"
#include "app/reader/SegmentSender.h"

#include <vtkDataObject.h>
#include <vtkFieldData.h>
#include <vtkSmartPointer.h>

#include <string>
#include <vector>

class vtkCellArray;
class vtkDataSet;
class vtkDataSetAttributes;
class vtkMultiBlockDataSet;
class vtkPointSet;

namespace veldraw::app {

/// Describes what VTK has read, for the process that wants it, and sends the values meanwhile. They are gone afterwards.
class GridDescription
{
public:
    /// @param channel outlives this
    explicit GridDescription(Channel& channel);

    /// @param data may be null
    /// @throws ImportError where there are more blocks or arrays than can be handed over; std::bad_alloc, ChannelClosed
    HandedBlock describe(vtkDataObject* data);

    /// Sends the values that have not been sent yet. @throws ChannelClosed
    void finish() { m_segments.finish(); }

    /// Sentences for the user, on what was left out.
    std::vector<std::string> const& remarks() const { return m_remarks; }

private:
    HandedGrid gridOf(vtkDataSet& grid);
    HandedBlock blocksOf(vtkMultiBlockDataSet& blocks);
    void addPoints(vtkPointSet& grid, HandedGrid& result);
    void addShape(vtkDataSet& grid, HandedGrid& result);
    void addMeshCells(vtkDataSet& grid, HandedGrid& result);
    void addSurfaceCells(vtkDataSet& grid, HandedGrid& result);
    HandedCells cellsOf(vtkCellArray& cells);
    HandedArray arrayOf(vtkAbstractArray& array);
    HandedArray numbersOf(vtkDataArray& array);
    std::vector<HandedArray> arraysOf(vtkDataSetAttributes& arrays);
    std::vector<HandedArray> arraysOf(vtkFieldData& arrays);

    SegmentSender m_segments;
    std::vector<vtkSmartPointer<vtkObject>> m_keepers; // of the memory whose addresses the sender knows
    std::vector<std::string> m_remarks;
    std::size_t m_blocks = 0; // so far
};

} // namespace veldraw::app

#pragma once

#include "app/plot/PartwiseMapper.h"
#include "app/plot/PlotSpace.h"
#include "kernel/data/DataSet.h"

#include <vtkActor.h>
#include <vtkLookupTable.h>
#include <vtkNew.h>
#include <vtkSmartPointer.h>

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

namespace veldraw::app {

/// What one field plot shows and how, worked out once for all of its zones.
struct FieldLook
{
    PlotSpace space;
    std::array<int, 3> axes{}; ///< variable numbers, Z is 0 in a plane
    int contourVariable = 0;   ///< 0 = no flood
    double contourMin = 0.0;   ///< common limits of the flood
    double contourMax = 0.0;
    vtkSmartPointer<vtkLookupTable> colours; ///< over 0 to 1
    bool mesh = false;
    bool inSpace = false; ///< lit surfaces in three dimensions
};

/// One zone in a field plot.
///
/// It holds what is drawn in single precision, scaled to the scene, and nothing of the kernel's buffers: an edit of a
/// value needs no copy on account of the picture, and a deleted variable's memory is free at once.
class ZoneDrawing
{
public:
    ZoneDrawing(kernel::DataSet const& dataSet, int number, FieldLook const& look);
    ~ZoneDrawing();

    /// Shows the present values of the contour variable, in the colours of @p look; all else is as when it was drawn, and so is
    /// which variable that is.
    void recolour(kernel::DataSet const& dataSet, FieldLook const& look);

    /// Has surfaces of several zones at the same place shown in a firm order, the last zone over the others, in place of a pattern
    /// that flickers. @param position of this zone among @p count, from 0
    void setDepthOrder(std::size_t position, std::size_t count);

    vtkActor* actor() const { return m_actor; }
    int zoneNumber() const { return m_zone; }

    /// What is drawn, in the scene.
    vtkPolyData& surface() const { return *m_mapper->GetInput(); }

    /// Cells that are drawn.
    long long cellCount() const;

    /// Bytes of geometry and values that the drawing keeps.
    long long bytes() const;

    ZoneDrawing(ZoneDrawing const&) = delete;
    ZoneDrawing& operator=(ZoneDrawing const&) = delete;

private:
    void colour(vtkPolyData& drawing, kernel::Field const& field, FieldLook const& look) const;
    void styleActor(FieldLook const& look);

    int m_zone;
    std::vector<std::int64_t> m_slots; // of the contour's values, for each drawn point or cell; empty = in order
    std::shared_ptr<kernel::Connectivity const> m_connectivity; // must outlive the mapper's adopted arrays
    vtkNew<PartwiseMapper> m_mapper;
    vtkNew<vtkActor> m_actor;
};

} // namespace veldraw::app

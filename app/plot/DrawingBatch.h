#pragma once

#include "app/plot/PartwiseMapper.h"
#include "app/plot/ZoneDrawing.h"

#include <vtkActor.h>
#include <vtkLookupTable.h>
#include <vtkNew.h>

#include <memory>
#include <vector>

namespace veldraw::app {

/// Drawings of one style that are shown by a single actor, since each actor costs the renderer time, however small it is.
class DrawingBatch
{
public:
    using Drawings = std::vector<ZoneDrawing const*>;

    explicit DrawingBatch(vtkLookupTable& colours);

    /// Shows @p drawings in this order; there must be at least one. Unchanged drawings are not built again.
    void show(Drawings const& drawings, bool mesh);

    /// Makes one of several surfaces at the same place visible; without it the picture would flicker between them.
    /// @param orders of each drawing: 0 stands before all others, 1 behind; empty: nothing lies over another
    void setDepthOrders(std::vector<float> const& orders);

    vtkActor* actor() const { return m_actor; }

    DrawingBatch(DrawingBatch const&) = delete;
    DrawingBatch& operator=(DrawingBatch const&) = delete;

private:
    void showShapes(Drawings const& drawings);
    void showColours(Drawings const& drawings);
    void styleActor(DrawingStyle const& style, bool mesh);

    std::vector<std::shared_ptr<ZoneGeometry const>> m_shown; // must outlive the mapper: memory of cells is theirs
    std::vector<kernel::UniqueId> m_colourings;
    std::vector<float> m_depthOrders; // of each drawing, where there are several
    vtkSmartPointer<vtkPolyData> m_drawing;
    vtkNew<PartwiseMapper> m_mapper;
    vtkNew<vtkActor> m_actor;
};

} // namespace veldraw::app

#pragma once

#include "app/plot/PartwiseMapper.h"
#include "app/plot/ZoneDrawing.h"

#include <vtkActor.h>
#include <vtkLookupTable.h>
#include <vtkNew.h>

#include <memory>
#include <vector>

namespace veldraw::app {

/// Drawings of one style that are shown as one, since each thing that a renderer shows costs it time, however small it is.
class DrawingBatch
{
public:
    using Drawings = std::vector<ZoneDrawing const*>;

    explicit DrawingBatch(vtkLookupTable& colours);

    /// Shows @p drawings, in this order, which is not empty. What is as it was is left as it is.
    void show(Drawings const& drawings, bool mesh);

    /// Has surfaces at the same place shown in a firm order, those of the last batch over the others, in place of a pattern that
    /// flickers. @param position of this batch among @p count, from 0
    void setDepthOrder(std::size_t position, std::size_t count);

    vtkActor* actor() const { return m_actor; }

    DrawingBatch(DrawingBatch const&) = delete;
    DrawingBatch& operator=(DrawingBatch const&) = delete;

private:
    void showShapes(Drawings const& drawings);
    void showColours(Drawings const& drawings);
    void styleActor(DrawingStyle const& style, bool mesh);

    std::vector<std::shared_ptr<ZoneGeometry const>> m_shown; // must outlive the mapper: memory of cells is theirs
    std::vector<kernel::UniqueId> m_colourings;
    vtkSmartPointer<vtkPolyData> m_drawing;
    vtkNew<PartwiseMapper> m_mapper;
    vtkNew<vtkActor> m_actor;
};

} // namespace veldraw::app

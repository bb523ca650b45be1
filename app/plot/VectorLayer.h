#pragma once

#include "app/plot/FieldLook.h"
#include "app/plot/ZoneDrawing.h"

#include <vtkActor.h>
#include <vtkGlyph3DMapper.h>
#include <vtkNew.h>
#include <vtkPolyData.h>
#include <vtkRenderer.h>

#include <memory>
#include <unordered_map>
#include <vector>

namespace veldraw::app {

/// The vectors of all zones of a field plot, as arrows in its renderer. There are no more arrows than can be told apart: one in each of
/// many boxes of the same size, however many points there are.
class VectorLayer
{
public:
    using Drawings = std::vector<std::unique_ptr<ZoneDrawing>>;

    /// Names of the data at the points of arrows().
    static constexpr char directionName[] = "direction"; ///< in the scene, of length 1
    static constexpr char lengthName[] = "length";       ///< in the scene

    explicit VectorLayer(vtkRenderer& stage);

    /// Shows the vectors of these drawings and no others. A vector of which a number is missing has no arrow, and neither has one of
    /// length 0. @throws std::bad_alloc
    void show(kernel::DataSet const& dataSet, Drawings const& drawings, FieldLook const& look);
    void clear();

    /// Where arrows begin, in the scene.
    vtkPolyData& arrows() const { return *m_arrows; }

    /// The length of the longest vector that has an arrow, in the unit of its variables; 0 without arrows.
    double longest() const { return m_longest; }

    VectorLayer(VectorLayer const&) = delete;
    VectorLayer& operator=(VectorLayer const&) = delete;

private:
    using Anchors = std::vector<vtkIdType>; // drawn points or cells
    struct OfZone
    {
        std::shared_ptr<ZoneGeometry const> geometry;
        ValueLocation_e location;
        std::shared_ptr<Anchors const> anchors;
    };

    std::shared_ptr<Anchors const> anchorsOf(ZoneDrawing const& drawing, ValueLocation_e location);
    void addArrows(kernel::DataSet const& dataSet, ZoneDrawing const& drawing, FieldLook const& look);
    void setLengths(bool areEqual);

    vtkRenderer& m_stage;
    std::unordered_map<kernel::UniqueId, OfZone> m_ofZones;
    double m_longest = 0.0;
    vtkSmartPointer<vtkPolyData> m_arrows;
    vtkNew<vtkPolyData> m_flatArrow;
    vtkNew<vtkGlyph3DMapper> m_mapper;
    vtkNew<vtkActor> m_actor;
};

} // namespace veldraw::app

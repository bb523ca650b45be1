#pragma once

#include "app/plot/ContourLabels.h"
#include "app/plot/FieldLook.h"
#include "app/plot/PartwiseMapper.h"
#include "app/plot/ZoneDrawing.h"

#include <vtkActor.h>
#include <vtkContextActor.h>
#include <vtkLookupTable.h>
#include <vtkNew.h>
#include <vtkRenderer.h>

#include <memory>
#include <unordered_map>
#include <vector>

namespace veldraw::app {

/// The contour lines of all zones of a field plot, with the numbers at them, in its renderer. The lines of a zone are kept until its
/// picture or the levels change.
class ContourLayer
{
public:
    using Drawings = std::vector<std::unique_ptr<ZoneDrawing>>;

    explicit ContourLayer(vtkRenderer& stage);

    /// Shows the lines of these drawings and no others. @throws std::bad_alloc
    void show(Drawings const& drawings, FieldLook const& look);
    void clear();

    void setPixelRatio(double ratio);

    /// What is shown: each cell is a line, with its level as ContourLines gives it.
    vtkPolyData& lines() const { return *m_lines; }
    ContourLabels& labels() const { return *m_labels; }

    ContourLayer(ContourLayer const&) = delete;
    ContourLayer& operator=(ContourLayer const&) = delete;

private:
    struct OfZone
    {
        kernel::UniqueId colouring;
        vtkSmartPointer<vtkPolyData> lines;
    };

    void findLines(Drawings const& drawings);
    void joinLines(Drawings const& drawings);
    void colourLines(FieldLook const& look);
    std::vector<ContourLabels::Label> labelsFor(FieldLook const& look) const;

    vtkRenderer& m_stage;
    std::vector<float> m_levels;
    std::unordered_map<kernel::UniqueId, OfZone> m_ofZones;
    vtkSmartPointer<vtkPolyData> m_lines;
    vtkNew<PartwiseMapper> m_mapper;
    vtkNew<vtkActor> m_actor;
    vtkNew<vtkContextActor> m_labelActor;
    vtkNew<ContourLabels> m_labels;
};

} // namespace veldraw::app

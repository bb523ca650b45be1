#include "app/plot/PickMarks.h"

#include "app/plot/PlotTheme.h"

#include <vtkCellArray.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>
#include <vtkProperty.h>

namespace veldraw::app {

namespace {

constexpr double boxGap = 0.006;   // between zone and box: neither hides the other
constexpr double overPlane = 0.01; // towards the eye

// Corner n lies at the high end of an axis when the axis's bit of n is set.
void addCorners(vtkPoints& points, PickMarks::Box const& box, bool inSpace)
{
    for (int corner = 0; corner < (inSpace ? 8 : 4); ++corner) {
        double position[3];
        for (std::size_t axis = 0; axis < 3; ++axis)
            position[axis] = (corner >> axis & 1) != 0 ? box[2 * axis + 1] + boxGap : box[2 * axis] - boxGap;
        if (!inSpace)
            position[2] = overPlane;
        points.InsertNextPoint(position);
    }
}

// Two corners make an edge when one bit differs.
void addEdges(vtkCellArray& edges, vtkIdType first, vtkIdType cornerCount)
{
    for (vtkIdType corner = 0; corner < cornerCount; ++corner)
        for (vtkIdType bit = 1; bit < cornerCount; bit *= 2)
            if ((corner & bit) == 0)
                edges.InsertNextCell({first + corner, first + (corner | bit)});
}

} // namespace

PickMarks::PickMarks()
{
    m_actor->SetMapper(m_mapper);
    vtkProperty* const property = m_actor->GetProperty();
    QColor const colour = PlotTheme::picked();
    property->SetColor(colour.redF(), colour.greenF(), colour.blueF());
    property->SetLighting(false);
    property->SetAmbient(0.0);
    property->SetDiffuse(1.0);
    property->SetLineWidth(2.0F);
    property->SetPointSize(8.0F);
}

void PickMarks::show(std::vector<Box> const& boxes, bool inSpace)
{
    vtkNew<vtkPoints> points;
    vtkNew<vtkCellArray> edges;
    vtkNew<vtkCellArray> handles;
    for (Box const& box : boxes) {
        vtkIdType const first = points->GetNumberOfPoints();
        addCorners(*points, box, inSpace);
        addEdges(*edges, first, points->GetNumberOfPoints() - first);
    }
    for (vtkIdType corner = 0; corner < points->GetNumberOfPoints(); ++corner)
        handles->InsertNextCell({corner});
    vtkNew<vtkPolyData> marks;
    marks->SetPoints(points);
    marks->SetLines(edges);
    marks->SetVerts(handles);
    m_mapper->SetInputData(marks);
}

} // namespace veldraw::app

#include "app/plot/PickMark.h"

#include "app/plot/PlotTheme.h"

#include <vtkCellArray.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>
#include <vtkPolyDataMapper.h>
#include <vtkProperty.h>

namespace veldraw::app {

namespace {

constexpr double air = 0.006;      // between zone and box: neither hides the other
constexpr double overPlane = 0.01; // towards the eye

// Corner n lies at the high end of an axis when the axis's bit of n is set; two corners make an edge when one bit differs.
void addCorners(vtkPoints& points, double const* bounds, bool inSpace)
{
    for (int corner = 0; corner < (inSpace ? 8 : 4); ++corner) {
        double position[3];
        for (int axis = 0; axis < 3; ++axis)
            position[axis] = (corner >> axis & 1) != 0 ? bounds[2 * axis + 1] + air : bounds[2 * axis] - air;
        if (!inSpace)
            position[2] = overPlane;
        points.InsertNextPoint(position);
    }
}

} // namespace

PickMark::PickMark(double const* bounds, bool inSpace)
{
    vtkNew<vtkPoints> points;
    addCorners(*points, bounds, inSpace);
    vtkNew<vtkCellArray> edges;
    vtkNew<vtkCellArray> handles;
    vtkIdType const count = points->GetNumberOfPoints();
    for (vtkIdType corner = 0; corner < count; ++corner) {
        handles->InsertNextCell(1, &corner);
        for (vtkIdType bit = 1; bit < count; bit *= 2)
            if (vtkIdType const edge[2] = {corner, corner | bit}; edge[0] != edge[1])
                edges->InsertNextCell(2, edge);
    }
    vtkNew<vtkPolyData> box;
    box->SetPoints(points);
    box->SetLines(edges);
    box->SetVerts(handles);
    vtkNew<vtkPolyDataMapper> mapper;
    mapper->SetInputData(box);
    m_actor->SetMapper(mapper);
    vtkProperty* const property = m_actor->GetProperty();
    QColor const colour = PlotTheme::picked();
    property->SetColor(colour.redF(), colour.greenF(), colour.blueF());
    property->SetLighting(false);
    property->SetAmbient(0.0);
    property->SetDiffuse(1.0);
    property->SetLineWidth(2.0F);
    property->SetPointSize(8.0F);
}

} // namespace veldraw::app

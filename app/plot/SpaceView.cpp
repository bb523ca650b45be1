#include "app/plot/SpaceView.h"

#include "app/plot/PlotTheme.h"

#include <vtkCamera.h>
#include <vtkProperty.h>
#include <vtkTextProperty.h>

#include <algorithm>

namespace veldraw::app {

SpaceView::SpaceView()
    : FieldView(true)
{
    vtkCamera* const camera = stage().GetActiveCamera();
    camera->SetViewAngle(25.0);
    camera->SetViewUp(0.0, 0.0, 1.0);
    camera->SetFocalPoint(0.0, 0.0, 0.0);
    camera->SetPosition(-1.1, -1.9, 1.15);
    styleAxes();
    m_axes->SetCamera(camera);
    stage().AddActor(m_axes);
}

void SpaceView::styleAxes()
{
    QColor const line = PlotTheme::axis();
    for (int axis = 0; axis < 3; ++axis) {
        PlotTheme::apply(*m_axes->GetTitleTextProperty(axis), PlotTheme::text(), 18, true);
        PlotTheme::apply(*m_axes->GetLabelTextProperty(axis), PlotTheme::quietText(), 16);
    }
    for (vtkProperty* const property :
         {m_axes->GetXAxesLinesProperty(), m_axes->GetYAxesLinesProperty(), m_axes->GetZAxesLinesProperty()}) {
        property->SetColor(line.redF(), line.greenF(), line.blueF());
        property->SetLineWidth(1.0F);
    }
    m_axes->SetFlyModeToOuterEdges();
    m_axes->SetTickLocationToOutside();
    m_axes->SetScreenSize(11.0);
    m_axes->SetLabelOffset(12.0);
    m_axes->SetTitleOffset(12.0);
    m_axes->XAxisMinorTickVisibilityOff();
    m_axes->YAxisMinorTickVisibilityOff();
    m_axes->ZAxisMinorTickVisibilityOff();
    m_axes->SetXLabelFormat("%.4g");
    m_axes->SetYLabelFormat("%.4g");
    m_axes->SetZLabelFormat("%.4g");
}

FieldView::Margins SpaceView::margins() const
{
    return {0.0, 0.0, hasLegend() ? 124.0 : 0.0, 0.0};
}

void SpaceView::updateAxes(std::array<QString, 3> const& names)
{
    PlotSpace const& box = space();
    double const halves[3] = {box.sceneHalf(0), box.sceneHalf(1), box.sceneHalf(2)};
    m_axes->SetBounds(-halves[0], halves[0], -halves[1], halves[1], -halves[2], halves[2]);
    m_axes->SetXAxisRange(box.min(0), box.max(0));
    m_axes->SetYAxisRange(box.min(1), box.max(1));
    m_axes->SetZAxisRange(box.min(2), box.max(2));
    m_axes->SetXTitle(names[0].toUtf8().constData());
    m_axes->SetYTitle(names[1].toUtf8().constData());
    m_axes->SetZTitle(names[2].toUtf8().constData());
    updateClipping();
}

void SpaceView::fit()
{
    constexpr double air = 1.12;
    double bounds[6];
    for (int axis = 0; axis < 3; ++axis) {
        double const half = std::max(space().sceneHalf(axis), 1e-3) * air;
        bounds[2 * axis] = -half;
        bounds[2 * axis + 1] = half;
    }
    stage().ResetCamera(bounds);
    updateClipping();
}

void SpaceView::rotate(QPointF const& from, QPointF const& to)
{
    // A drag across the whole area turns by 200 degrees.
    constexpr double degrees = 200.0;
    QPointF const step = to - from;
    vtkCamera* const camera = stage().GetActiveCamera();
    camera->Azimuth(-degrees * step.x());
    camera->Elevation(-degrees * step.y());
    camera->OrthogonalizeViewUp();
    updateClipping();
}

void SpaceView::pan(QPointF const& from, QPointF const& to)
{
    QPointF const step = onStage(to) - onStage(from);
    vtkCamera* const camera = stage().GetActiveCamera();
    double const height =
        2.0 * camera->GetDistance() * std::tan(0.5 * camera->GetViewAngle() * 3.14159265358979 / 180.0);
    double const right = -step.x() * height * stageWidth() / stageHeight();
    double const up = -step.y() * height;
    double const* const direction = camera->GetDirectionOfProjection();
    double const* const viewUp = camera->GetViewUp();
    double const side[3] = {direction[1] * viewUp[2] - direction[2] * viewUp[1],
                            direction[2] * viewUp[0] - direction[0] * viewUp[2],
                            direction[0] * viewUp[1] - direction[1] * viewUp[0]};
    double focus[3];
    double position[3];
    camera->GetFocalPoint(focus);
    camera->GetPosition(position);
    for (int n = 0; n < 3; ++n) {
        double const shift = right * side[n] + up * viewUp[n];
        focus[n] += shift;
        position[n] += shift;
    }
    camera->SetFocalPoint(focus);
    camera->SetPosition(position);
    updateClipping();
}

void SpaceView::zoom(double factor, QPointF const&)
{
    vtkCamera* const camera = stage().GetActiveCamera();
    double const distance = std::clamp(camera->GetDistance() / factor, 1e-4, 1e3);
    camera->Dolly(camera->GetDistance() / distance);
    updateClipping();
}

void SpaceView::updateClipping()
{
    // Wider than the zones: the axes' numbers stand around the box.
    constexpr double reach = 1.6;
    stage().ResetCameraClippingRange(-reach, reach, -reach, reach, -reach, reach);
}

} // namespace veldraw::app

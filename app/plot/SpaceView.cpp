#include "app/plot/SpaceView.h"

#include <vtkCamera.h>
#include <vtkLight.h>
#include <vtkMatrix4x4.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace veldraw::app {

SpaceView::SpaceView(std::function<void()> ready)
    : FieldView(true, std::move(ready))
    , m_axes(stage())
{
    vtkCamera* const camera = stage().GetActiveCamera();
    camera->SetViewAngle(24.0);
    camera->SetViewUp(0.0, 0.0, 1.0);
    camera->SetFocalPoint(0.0, 0.0, 0.0);
    camera->SetPosition(-1.2, -1.9, 1.25);
    addLights();
}

// Lights that go with the camera: the main one from above its right shoulder, a weak one from the left.
void SpaceView::addLights()
{
    stage().AutomaticLightCreationOff();
    auto const add = [this](double x, double y, double z, double intensity) {
        vtkNew<vtkLight> light;
        light->SetLightTypeToCameraLight();
        light->SetPosition(x, y, z);
        light->SetFocalPoint(0.0, 0.0, 0.0);
        light->SetIntensity(intensity);
        stage().AddLight(light);
    };
    add(0.30, 0.60, 1.0, 0.75);
    add(-0.9, 0.05, 0.7, 0.35);
}

QMarginsF SpaceView::margins() const
{
    return {0.0, 0.0, legendWidth(), 0.0};
}

void SpaceView::setArea(ViewArea const& viewArea)
{
    FieldView::setArea(viewArea);
    followCamera();
}

void SpaceView::updateAxes(std::array<QString, 3> const& names)
{
    m_axes.setBox(space(), names);
    followCamera();
}

void SpaceView::fit()
{
    double bounds[6];
    for (int axis = 0; axis < 3; ++axis) {
        double const half = std::max(space().sceneHalf(axis), 1e-3);
        bounds[2 * axis] = -half;
        bounds[2 * axis + 1] = half;
    }
    stage().GetActiveCamera()->SetWindowCenter(0.0, 0.0);
    stage().ResetCamera(bounds);
    for (int round = 0; round < 4; ++round)
        fillStage();
    setFitted(true);
    followCamera();
}

// The distance is what fit() makes of it.
void SpaceView::lookFrom(ViewSide side)
{
    struct Eye
    {
        double place[3];
        double up[3];
    };
    static constexpr Eye eyes[] = {{{1, 0, 0}, {0, 0, 1}},  {{-1, 0, 0}, {0, 0, 1}}, {{0, 1, 0}, {0, 0, 1}},
                                   {{0, -1, 0}, {0, 0, 1}}, {{0, 0, 1}, {0, 1, 0}},  {{0, 0, -1}, {0, 1, 0}},
                                   {{-1, -1, 1}, {0, 0, 1}}};
    Eye const& eye = eyes[static_cast<std::size_t>(side)];
    vtkCamera* const camera = stage().GetActiveCamera();
    camera->SetFocalPoint(0.0, 0.0, 0.0);
    camera->SetPosition(eye.place);
    camera->SetViewUp(eye.up);
    camera->OrthogonalizeViewUp();
    fit();
}

// Brings the box's outline nearer to the middle of the stage and to its edges, with room for the numbers around it.
void SpaceView::fillStage()
{
    vtkCamera* const camera = stage().GetActiveCamera();
    double const aspect = stageWidth() / stageHeight();
    vtkMatrix4x4* const matrix = camera->GetCompositeProjectionTransformMatrix(aspect, -1.0, 1.0);
    double low[2] = {1e9, 1e9};
    double high[2] = {-1e9, -1e9};
    for (int corner = 0; corner < 8; ++corner) {
        double const point[4] = {(corner & 1 ? 1 : -1) * space().sceneHalf(0),
                                 (corner & 2 ? 1 : -1) * space().sceneHalf(1),
                                 (corner & 4 ? 1 : -1) * space().sceneHalf(2), 1.0};
        double clip[4];
        matrix->MultiplyPoint(point, clip);
        for (int n = 0; n < 2; ++n) {
            low[n] = std::min(low[n], clip[n] / std::max(clip[3], 1e-9));
            high[n] = std::max(high[n], clip[n] / std::max(clip[3], 1e-9));
        }
    }
    // Numbers and names stand left of the box and below it, in the view that a plot starts with.
    double const unit = area().pixelRatio;
    double const left = std::min(76.0 * unit, 0.30 * stageWidth()) / stageWidth();
    double const right = std::min(30.0 * unit, 0.1 * stageWidth()) / stageWidth();
    double const bottom = std::min(56.0 * unit, 0.2 * stageHeight()) / stageHeight();
    double const top = std::min(26.0 * unit, 0.1 * stageHeight()) / stageHeight();
    double const* const centre = camera->GetWindowCenter();
    camera->SetWindowCenter(centre[0] + 0.5 * (low[0] + high[0]) - (left - right),
                            centre[1] + 0.5 * (low[1] + high[1]) - (bottom - top));
    double const fill =
        std::max(0.5 * (high[0] - low[0]) / (1.0 - left - right), 0.5 * (high[1] - low[1]) / (1.0 - bottom - top));
    if (fill > 1e-6)
        camera->Dolly(1.0 / fill);
}

// The direction stays, also where each axis has its own scale; then the largest change counts, so that what was in view stays
// in view.
void SpaceView::carryView(PlotSpace const& before)
{
    vtkCamera* const camera = stage().GetActiveCamera();
    double focus[3];
    double position[3];
    camera->GetFocalPoint(focus);
    camera->GetPosition(position);
    double growth = 0.0;
    for (int axis = 0; axis < 3; ++axis)
        growth = std::max(growth, before.unit(axis) / space().unit(axis));
    for (int axis = 0; axis < 3; ++axis) {
        double const carried = space().toScene(axis, before.toValue(axis, focus[axis]));
        position[axis] = carried + growth * (position[axis] - focus[axis]);
        focus[axis] = carried;
    }
    camera->SetFocalPoint(focus);
    camera->SetPosition(position);
    followCamera();
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
    followCamera();
}

void SpaceView::pan(QPointF const& from, QPointF const& to)
{
    setFitted(false);
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
    followCamera();
}

void SpaceView::zoom(double factor, QPointF const&)
{
    setFitted(false);
    vtkCamera* const camera = stage().GetActiveCamera();
    double const distance = std::clamp(camera->GetDistance() / factor, 1e-4, 1e3);
    camera->Dolly(camera->GetDistance() / distance);
    followCamera();
}

void SpaceView::followCamera()
{
    // Wider than the box: whatever the camera does, neither the zones nor the grid are cut.
    constexpr double reach = 0.6;
    stage().ResetCameraClippingRange(-reach, reach, -reach, reach, -reach, reach);
    m_axes.update(*stage().GetActiveCamera(), stageWidth(), stageHeight(), area().pixelRatio);
}

} // namespace veldraw::app

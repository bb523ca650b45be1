#include "app/plot/SpaceView.h"

#include <vtkCamera.h>
#include <vtkLight.h>
#include <vtkMath.h>
#include <vtkMatrix4x4.h>
#include <vtkTransform.h>

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
    vtkCamera* const camera = stage().GetActiveCamera();
    bool const wasParallel = camera->GetParallelProjection() != 0;
    camera->SetParallelProjection(isParallel() ? 1 : 0);
    if (wasParallel != isParallel() && isFitted())
        fit();
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
    dolly(1.0);
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
        dolly(1.0 / fill);
}

// Without perspective the distance says how much is seen, as it does with it.
void SpaceView::dolly(double factor)
{
    vtkCamera* const camera = stage().GetActiveCamera();
    camera->Dolly(factor);
    camera->SetParallelScale(halfHeightAtFocus());
}

double SpaceView::halfHeightAtFocus() const
{
    vtkCamera* const camera = stage().GetActiveCamera();
    return camera->GetDistance() * std::tan(0.5 * camera->GetViewAngle() * 3.14159265358979 / 180.0);
}

void SpaceView::setViewPoint(ViewPoint const& view)
{
    if (!view.inSpace)
        return;
    vtkCamera* const camera = stage().GetActiveCamera();
    camera->SetFocalPoint(view.focus.data());
    camera->SetPosition(view.eye.data());
    camera->SetViewUp(view.up.data());
    camera->SetWindowCenter(view.middle[0], view.middle[1]);
    setFitted(view.isFitted);
    if (view.isFitted && !isOfThisPlace(view))
        fit();
    else if (view.space != space())
        carryView(view.space);
    followCamera();
}

void SpaceView::rotateAround(std::optional<QPointF> const& position)
{
    m_pivot = position ? sceneAt(*position) : std::nullopt;
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
    if (m_pivot) {
        rotateAboutPivot(-degrees * step.x(), degrees * step.y());
    } else {
        camera->Azimuth(-degrees * step.x());
        camera->Elevation(-degrees * step.y());
    }
    camera->OrthogonalizeViewUp();
    followCamera();
}

// The pivot stays where it is seen: the camera goes round it as a whole.
void SpaceView::rotateAboutPivot(double azimuth, double elevation)
{
    setFitted(false);
    vtkCamera* const camera = stage().GetActiveCamera();
    double right[3];
    vtkMath::Cross(camera->GetDirectionOfProjection(), camera->GetViewUp(), right);
    vtkNew<vtkTransform> rotation;
    rotation->Translate(m_pivot->data());
    rotation->RotateWXYZ(azimuth, camera->GetViewUp());
    rotation->RotateWXYZ(elevation, right);
    rotation->Translate(-(*m_pivot)[0], -(*m_pivot)[1], -(*m_pivot)[2]);
    camera->ApplyTransform(rotation);
}

void SpaceView::pan(QPointF const& from, QPointF const& to)
{
    setFitted(false);
    QPointF const step = onStage(to) - onStage(from);
    vtkCamera* const camera = stage().GetActiveCamera();
    camera->OrthogonalizeViewUp(); // else the plot would lag behind the mouse
    double const height = 2.0 * halfHeightAtFocus();
    shift(-step.x() * height * stageWidth() / stageHeight(), -step.y() * height);
    followCamera();
}

// Moves the camera to its right and upwards, in units of the scene.
void SpaceView::shift(double right, double up)
{
    vtkCamera* const camera = stage().GetActiveCamera();
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
        double const step = right * side[n] + up * viewUp[n];
        focus[n] += step;
        position[n] += step;
    }
    camera->SetFocalPoint(focus);
    camera->SetPosition(position);
}

// What is as far away as the focus stays where it is seen.
void SpaceView::zoom(double factor, QPointF const& at)
{
    setFitted(false);
    vtkCamera* const camera = stage().GetActiveCamera();
    camera->OrthogonalizeViewUp();
    QPointF const offset = onStage(at) - focusOnStage();
    double const distance = std::clamp(camera->GetDistance() / factor, 1e-4, 1e3);
    double const gain = 2.0 * halfHeightAtFocus() * (1.0 - distance / camera->GetDistance());
    shift(offset.x() * gain * stageWidth() / stageHeight(), offset.y() * gain);
    dolly(camera->GetDistance() / distance);
    followCamera();
}

// Where the focus of the camera is seen, as a share of the stage.
QPointF SpaceView::focusOnStage() const
{
    vtkCamera* const camera = stage().GetActiveCamera();
    double focus[4] = {0.0, 0.0, 0.0, 1.0};
    camera->GetFocalPoint(focus);
    double clip[4];
    camera->GetCompositeProjectionTransformMatrix(stageWidth() / stageHeight(), -1.0, 1.0)->MultiplyPoint(focus, clip);
    return {0.5 + 0.5 * clip[0] / clip[3], 0.5 + 0.5 * clip[1] / clip[3]};
}

void SpaceView::followCamera()
{
    // Wider than the box: whatever the camera does, neither the zones nor the grid are cut.
    constexpr double reach = 0.6;
    stage().GetActiveCamera()->SetParallelScale(halfHeightAtFocus());
    stage().ResetCameraClippingRange(-reach, reach, -reach, reach, -reach, reach);
    m_axes.update(*stage().GetActiveCamera(), stageWidth(), stageHeight(), area().pixelRatio);
}

} // namespace veldraw::app

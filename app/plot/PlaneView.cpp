#include "app/plot/PlaneView.h"

#include <vtkCamera.h>

#include <algorithm>
#include <utility>

namespace veldraw::app {

PlaneView::PlaneView(std::function<void()> ready)
    : FieldView(false, std::move(ready))
    , m_axes(ground())
{
    m_isPlacing = true; // there is no area yet
    stage().GetActiveCamera()->ParallelProjectionOn();
    look(0.0, 0.0, 0.5);
    m_isPlacing = false;
}

QMarginsF PlaneView::margins() const
{
    QMarginsF margins = m_axes.margins();
    margins.setRight(std::max(margins.right(), legendWidth()));
    return margins;
}

// The margins depend on the numbers at the axes, hence on the visible part of the data, which depends on the margins.
void PlaneView::setArea(ViewArea const& viewArea)
{
    constexpr int mostRounds = 3;
    bool const wasPlacing = std::exchange(m_isPlacing, true);
    for (int round = 0; round == 0 || (round < mostRounds && margins() != shownMargins()); ++round) {
        FieldView::setArea(viewArea);
        placeAxes();
    }
    m_isPlacing = wasPlacing;
}

void PlaneView::placeAxes()
{
    QRectF const box(shownMargins().left() * area().pixelRatio, shownMargins().bottom() * area().pixelRatio,
                     stageWidth(), stageHeight());
    // The renderer of the zones covers what is below it: the lines around it stand one pixel outside.
    m_axes.setBox(box.adjusted(-1, -1, 1, 1), area().pixelRatio);
    updateTicks();
}

void PlaneView::fit()
{
    constexpr double air = 1.08;
    double const halfWidth = std::max(space().sceneHalf(0), 1e-6);
    double const halfHeight = std::max(space().sceneHalf(1), 1e-6);
    setFitted(true);
    look(0.0, 0.0, air * std::max(halfHeight, halfWidth / aspect()));
}

void PlaneView::setViewPoint(ViewPoint const& view)
{
    if (view.inSpace)
        return;
    setFitted(view.isFitted);
    look(view.focus[0], view.focus[1], view.halfHeight);
    if (view.isFitted && !isOfThisPlace(view))
        fit();
    else if (view.space != space())
        carryView(view.space);
}

void PlaneView::carryView(PlotSpace const& before)
{
    vtkCamera* const camera = stage().GetActiveCamera();
    double const* const centre = camera->GetFocalPoint();
    // The larger one, where each axis has its own scale: what was in view stays in view.
    double const growth = std::max(before.unit(0) / space().unit(0), before.unit(1) / space().unit(1));
    look(space().toScene(0, before.toValue(0, centre[0])), space().toScene(1, before.toValue(1, centre[1])),
         camera->GetParallelScale() * growth);
}

void PlaneView::look(double x, double y, double halfHeight)
{
    vtkCamera* const camera = stage().GetActiveCamera();
    camera->SetFocalPoint(x, y, 0.0);
    camera->SetPosition(x, y, 1.0);
    camera->SetViewUp(0.0, 1.0, 0.0);
    camera->SetClippingRange(0.1, 2.0);
    camera->SetParallelScale(halfHeight);
    updateTicks();
    if (!m_isPlacing && margins() != shownMargins())
        setArea(area());
}

void PlaneView::pan(QPointF const& from, QPointF const& to)
{
    setFitted(false);
    QPointF const step = onStage(to) - onStage(from);
    vtkCamera* const camera = stage().GetActiveCamera();
    double const height = 2.0 * camera->GetParallelScale();
    double const* const centre = camera->GetFocalPoint();
    look(centre[0] - step.x() * height * aspect(), centre[1] - step.y() * height, camera->GetParallelScale());
}

void PlaneView::zoom(double factor, QPointF const& at)
{
    setFitted(false);
    vtkCamera* const camera = stage().GetActiveCamera();
    double const before = camera->GetParallelScale();
    double const after = std::clamp(before / factor, 1e-6, 1e3);
    QPointF const offset = onStage(at) - QPointF(0.5, 0.5);
    double const shift = 2.0 * (before - after);
    double const* const centre = camera->GetFocalPoint();
    look(centre[0] + offset.x() * shift * aspect(), centre[1] + offset.y() * shift, after);
}

void PlaneView::updateAxes(std::array<QString, 3> const& names)
{
    m_axes.setTitles(names[0], names[1]);
    setArea(area());
}

void PlaneView::updateTicks()
{
    vtkCamera* const camera = stage().GetActiveCamera();
    double const halfHeight = camera->GetParallelScale();
    double const halfWidth = halfHeight * aspect();
    double const* const centre = camera->GetFocalPoint();
    m_axes.setLimits(space().toValue(0, centre[0] - halfWidth), space().toValue(0, centre[0] + halfWidth),
                     space().toValue(1, centre[1] - halfHeight), space().toValue(1, centre[1] + halfHeight));
}

} // namespace veldraw::app

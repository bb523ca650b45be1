#include "app/plot/FrameView.h"

#include "app/plot/PlotTheme.h"

#include <vtkRenderWindow.h>

namespace veldraw::app {

FrameView::FrameView()
{
    setBehind(*m_ground, false);
    m_ground->InteractiveOff();
}

FrameView::~FrameView() = default;

// Black counts for nothing where it is transparent: it does not show through half-transparent edges.
void FrameView::setBehind(vtkRenderer& renderer, bool isTransparent)
{
    QColor const colour = isTransparent ? QColor(Qt::black) : PlotTheme::paper();
    renderer.SetBackground(colour.redF(), colour.greenF(), colour.blueF());
    renderer.SetBackgroundAlpha(isTransparent ? 0.0 : 1.0);
}

void FrameView::setTransparent(bool isTransparent)
{
    setBehind(*m_ground, isTransparent);
}

void FrameView::addTo(vtkRenderWindow& window)
{
    window.AddRenderer(m_ground);
}

void FrameView::removeFrom(vtkRenderWindow& window)
{
    window.RemoveRenderer(m_ground);
}

void FrameView::setArea(ViewArea const& area)
{
    m_area = area;
    m_ground->SetViewport(area.fraction.left(), area.fraction.top(), area.fraction.right(), area.fraction.bottom());
}

} // namespace veldraw::app

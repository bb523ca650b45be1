#include "app/plot/FrameView.h"

#include "app/plot/PlotTheme.h"

#include <vtkRenderWindow.h>

namespace veldraw::app {

FrameView::FrameView()
{
    QColor const paper = PlotTheme::paper();
    m_ground->SetBackground(paper.redF(), paper.greenF(), paper.blueF());
    m_ground->InteractiveOff();
}

FrameView::~FrameView() = default;

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

#include "app/plot/PlaneAxes.h"

#include "app/plot/PlotTheme.h"

#include <vtkContextScene.h>
#include <vtkPen.h>
#include <vtkRenderer.h>
#include <vtkTextProperty.h>

namespace veldraw::app {

PlaneAxes::PlaneAxes(vtkRenderer& ground)
{
    prepare(*m_bottom, vtkAxis::BOTTOM);
    prepare(*m_left, vtkAxis::LEFT);
    prepare(*m_top, vtkAxis::TOP);
    prepare(*m_right, vtkAxis::RIGHT);
    for (vtkAxis* const plain : {m_top.Get(), m_right.Get()}) {
        plain->SetLabelsVisible(false);
        plain->SetTicksVisible(false);
        plain->SetTitleVisible(false);
    }
    m_actor->GetScene()->SetRenderer(&ground);
    ground.AddActor(m_actor);
}

void PlaneAxes::prepare(vtkAxis& axis, int position)
{
    QColor const line = PlotTheme::axis();
    axis.SetPosition(position);
    axis.SetBehavior(vtkAxis::FIXED);
    axis.SetTickLabelAlgorithm(vtkAxis::TICK_SIMPLE);
    axis.GetPen()->SetColorF(line.redF(), line.greenF(), line.blueF());
    axis.GetPen()->SetWidth(1.0F);
    axis.SetGridVisible(false);
    PlotTheme::apply(*axis.GetLabelProperties(), PlotTheme::quietText(), PlotTheme::labelSize);
    PlotTheme::apply(*axis.GetTitleProperties(), PlotTheme::text(), PlotTheme::titleSize, true);
    m_actor->GetScene()->AddItem(&axis);
}

void PlaneAxes::setTitles(QString const& bottom, QString const& left)
{
    m_bottom->SetTitle(bottom.toStdString());
    m_left->SetTitle(left.toStdString());
}

void PlaneAxes::setBox(QRectF const& box)
{
    auto const place = [](vtkAxis& axis, double x1, double y1, double x2, double y2) {
        axis.SetPoint1(static_cast<float>(x1), static_cast<float>(y1));
        axis.SetPoint2(static_cast<float>(x2), static_cast<float>(y2));
        axis.Update();
    };
    place(*m_bottom, box.left(), box.top(), box.right(), box.top());
    place(*m_left, box.left(), box.top(), box.left(), box.bottom());
    place(*m_top, box.left(), box.bottom(), box.right(), box.bottom());
    place(*m_right, box.right(), box.top(), box.right(), box.bottom());
}

void PlaneAxes::setLimits(double xMin, double xMax, double yMin, double yMax)
{
    m_bottom->SetRange(xMin, xMax);
    m_left->SetRange(yMin, yMax);
    for (vtkAxis* const axis : {m_bottom.Get(), m_left.Get()}) {
        axis->RecalculateTickSpacing();
        axis->Update();
    }
}

} // namespace veldraw::app

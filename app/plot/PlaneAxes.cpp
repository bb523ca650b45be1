#include "app/plot/PlaneAxes.h"

#include "app/plot/PlotTheme.h"
#include "app/plot/TextFit.h"

#include <vtkContextScene.h>
#include <vtkDoubleArray.h>
#include <vtkPen.h>
#include <vtkRenderer.h>
#include <vtkStringArray.h>
#include <vtkTextProperty.h>

#include <algorithm>
#include <cmath>

namespace veldraw::app {

namespace {

constexpr int mostTitleLines = 3;

double widest(AxisTicks const& ticks, vtkAxis& axis, double pixelRatio)
{
    double most = 0.0;
    for (std::string const& label : ticks.labels)
        most = std::max(most,
                        TextFit::sizeOf(QString::fromStdString(label), *axis.GetLabelProperties(), pixelRatio).width());
    return most / pixelRatio;
}

} // namespace

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
    axis.GetPen()->SetColorF(line.redF(), line.greenF(), line.blueF());
    axis.GetPen()->SetWidth(1.0F);
    axis.SetGridVisible(false);
    PlotTheme::apply(*axis.GetLabelProperties(), PlotTheme::quietText(), PlotTheme::labelSize);
    PlotTheme::apply(*axis.GetTitleProperties(), PlotTheme::text(), PlotTheme::titleSize, true);
    m_actor->GetScene()->AddItem(&axis);
}

AxisTicks PlaneAxes::setTicks(vtkAxis& axis, double length, double pixelRatio, bool isLogarithmic)
{
    bool const isVertical = axis.GetPosition() == vtkAxis::LEFT || axis.GetPosition() == vtkAxis::RIGHT;
    auto const roomOf = [&](std::string const& label) {
        constexpr double lineHeight = 28.0;
        constexpr double gap = 18.0;
        QString const text = QString::fromStdString(label);
        return isVertical ? lineHeight
                          : gap + TextFit::sizeOf(text, *axis.GetLabelProperties(), pixelRatio).width() / pixelRatio;
    };
    auto const along = isLogarithmic ? &AxisTicks::logarithmicAlong : &AxisTicks::along;
    AxisTicks ticks = along(axis.GetMinimum(), axis.GetMaximum(), length / pixelRatio, roomOf);
    vtkNew<vtkDoubleArray> positions;
    vtkNew<vtkStringArray> labels;
    for (std::size_t n = 0; n < ticks.values.size(); ++n) {
        positions->InsertNextValue(ticks.values[n]);
        labels->InsertNextValue(ticks.labels[n]);
    }
    axis.SetCustomTickPositions(positions, labels);
    return ticks;
}

void PlaneAxes::setTitle(vtkAxis& axis, QString const& title, double length, double pixelRatio, int mostLines)
{
    TextFit const fit = TextFit::into(length, title, *axis.GetTitleProperties(), pixelRatio, mostLines);
    axis.GetTitleProperties()->SetFontSize(fit.size);
    axis.SetTitle(fit.text.toStdString());
}

void PlaneAxes::setTitles(QString const& bottom, QString const& left)
{
    m_bottomTitle = bottom;
    m_leftTitle = left;
}

void PlaneAxes::setBox(QRectF const& box, double pixelRatio)
{
    m_box = box;
    m_ratio = pixelRatio;
    setTitle(*m_bottom, m_bottomTitle, box.width(), pixelRatio, mostTitleLines);
    setTitle(*m_left, m_leftTitle, box.height(), pixelRatio, mostTitleLines);
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
    m_bottomLabels = widest(setTicks(*m_bottom, m_box.width(), m_ratio), *m_bottom, m_ratio);
    m_leftLabels = widest(setTicks(*m_left, m_box.height(), m_ratio), *m_left, m_ratio);
    m_bottom->Update();
    m_left->Update();
}

double PlaneAxes::titleRoom(vtkAxis& axis) const
{
    QString const title = QString::fromStdString(axis.GetTitle());
    return TextFit::sizeOf(title, *axis.GetTitleProperties(), m_ratio).height() / m_ratio;
}

QMarginsF PlaneAxes::margins() const
{
    // In steps, so that the box does not jump with every digit while the user moves the view.
    constexpr double step = 16.0;
    double const labels = step * std::ceil(std::max(m_leftLabels, 2.0 * step) / step);
    return {32.0 + labels + titleRoom(*m_left), 20.0, std::max(24.0, 0.5 * m_bottomLabels + 6.0),
            40.0 + titleRoom(*m_bottom)};
}

} // namespace veldraw::app

#include "app/plot/ContourLabels.h"

#include "app/plot/PlotTheme.h"
#include "app/plot/TextFit.h"

#include <QRectF>
#include <vtkBrush.h>
#include <vtkContext2D.h>
#include <vtkContextDevice2D.h>
#include <vtkFloatArray.h>
#include <vtkObjectFactory.h>
#include <vtkPen.h>
#include <vtkRenderWindow.h>
#include <vtkRenderer.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace veldraw::app {

namespace {

// Logical pixels.
constexpr double sideRoom = 3.0;
constexpr double between = 14.0;

// What is drawn at a place is a little nearer or farther than the place itself, as depths are rounded and lines are moved forward.
constexpr double depthNoise = 2e-3;

std::array<double, 3> onDisplay(vtkRenderer& stage, std::array<double, 3> const& place)
{
    std::array<double, 3> display{};
    stage.SetWorldPoint(place[0], place[1], place[2], 1.0);
    stage.WorldToDisplay();
    stage.GetDisplayPoint(display.data());
    return display;
}

bool isHidden(vtkRenderer& stage, std::array<double, 3> const& display)
{
    int const x = static_cast<int>(display[0]);
    int const y = static_cast<int>(display[1]);
    vtkNew<vtkFloatArray> depths;
    if (stage.GetRenderWindow()->GetZbufferData(x - 1, y - 1, x + 1, y + 1, depths) == 0)
        return false;
    double farthest = 0.0;
    for (vtkIdType n = 0; n < depths->GetNumberOfValues(); ++n)
        farthest = std::max(farthest, static_cast<double>(depths->GetValue(n)));
    return display[2] > farthest + depthNoise;
}

} // namespace

vtkStandardNewMacro(ContourLabels)

    ContourLabels::ContourLabels()
{
    PlotTheme::apply(*m_text, PlotTheme::text(), PlotTheme::labelSize);
    m_text->SetVerticalJustificationToCentered();
    m_text->SetJustificationToCentered();
}

void ContourLabels::show(vtkRenderer& stage, std::vector<Label> labels)
{
    m_stage = &stage;
    m_labels = std::move(labels);
}

void ContourLabels::choose()
{
    m_painted.clear();
    int const* const origin = m_stage->GetOrigin();
    int const* const size = m_stage->GetSize();
    QRectF const room(0.0, 0.0, size[0], size[1]);
    for (Label const& label : m_labels) {
        std::array<double, 3> const display = onDisplay(*m_stage, label.place);
        QPointF const middle(display[0] - origin[0], display[1] - origin[1]);
        QSizeF const text = TextFit::sizeOf(label.text, *m_text, m_ratio) + QSizeF(2.0, 0.0) * sideRoom * m_ratio;
        QRectF const box(middle - QPointF(0.5 * text.width(), 0.5 * text.height()), text);
        double const gap = between * m_ratio;
        QRectF const reach = box.adjusted(-gap, -gap, gap, gap);
        auto const touches = [&reach](Painted const& other) { return reach.intersects(other.box); };
        if (room.contains(box) && std::none_of(m_painted.begin(), m_painted.end(), touches) &&
            !isHidden(*m_stage, display))
            m_painted.push_back({box, label.text});
    }
}

bool ContourLabels::Paint(vtkContext2D* painter)
{
    if (m_labels.empty())
        m_painted.clear();
    else if (painter->GetDevice()->IsA("vtkOpenGLContextDevice2D") != 0)
        choose();
    QColor const paper = PlotTheme::paper();
    painter->ApplyTextProp(m_text);
    painter->GetPen()->SetLineType(vtkPen::NO_PEN);
    painter->GetBrush()->SetColorF(paper.redF(), paper.greenF(), paper.blueF(), 0.75);
    for (Painted const& label : m_painted) {
        painter->DrawRect(static_cast<float>(label.box.left()), static_cast<float>(label.box.top()),
                          static_cast<float>(label.box.width()), static_cast<float>(label.box.height()));
        QPointF const middle = label.box.center();
        painter->DrawString(static_cast<float>(middle.x()), static_cast<float>(middle.y()),
                            label.text.toUtf8().constData());
    }
    return true;
}

} // namespace veldraw::app

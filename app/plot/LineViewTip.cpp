// What a line plot tells of places under the mouse.
#include "app/plot/LinePoints.h"
#include "app/plot/LineView.h"
#include "app/plot/TickLabels.h"

#include <vtkAxis.h>
#include <vtkTable.h>

#include <cmath>

namespace veldraw::app {

QString LineView::tipAt(QPointF const& position) const
{
    constexpr double reach = 8.0; // logical pixels
    QPointF const mouse = inBox(position);
    int const* const first = m_chart->GetPoint1();
    int const* const last = m_chart->GetPoint2();
    auto const pixelsAlong = [&](int side, double place, double share) {
        vtkAxis& axis = *m_chart->GetAxis(side);
        std::size_t const n = side == vtkAxis::BOTTOM ? 0 : 1;
        double const at = (place - axis.GetMinimum()) / (axis.GetMaximum() - axis.GetMinimum());
        return (at - share) * (last[n] - first[n]) / area().pixelRatio;
    };
    Curve const* nearest = nullptr;
    vtkIdType nearestRow = 0;
    double least = reach;
    for (Curve const& curve : m_shown)
        for (vtkIdType row = 0; row < curve.points->GetNumberOfRows(); ++row) {
            double const x = pixelsAlong(vtkAxis::BOTTOM, LinePoints::number(*curve.points, row, 0), mouse.x());
            int const side = curve.isOnSecondAxis ? vtkAxis::RIGHT : vtkAxis::LEFT;
            double const y = pixelsAlong(side, LinePoints::number(*curve.points, row, 1), mouse.y());
            double const distance = std::hypot(x, y); // no number where the curve has a gap
            if (distance < least) {
                least = distance;
                nearest = &curve;
                nearestRow = row;
            }
        }
    return nearest == nullptr ? QString() : nearest->tip(nearestRow);
}

std::map<kernel::LineAxisKind, kernel::LineAxis> LineView::rangesIn(QPointF const& from, QPointF const& to) const
{
    using Kind = kernel::LineAxisKind;
    constexpr double least = 6.0; // logical pixels
    auto const isWide = [&](double share, double length) {
        return std::abs(share) * length >= least * area().pixelRatio;
    };
    QPointF const first = inBox(from);
    QPointF const last = inBox(to);
    std::map<Kind, kernel::LineAxis> ranges;
    if (isWide(to.x() - from.x(), area().width))
        ranges[Kind::X] = m_axes.between(Kind::X, first.x(), last.x());
    for (Kind const kind : {Kind::Y, Kind::Y2})
        if (m_axes.isUsed(kind) && isWide(to.y() - from.y(), area().height))
            ranges[kind] = m_axes.between(kind, first.y(), last.y());
    return ranges;
}

QString LineView::Curve::tip(vtkIdType row) const
{
    QString text = QStringLiteral("<b>%1</b>").arg(name.toHtmlEscaped());
    for (std::size_t axis = 0; axis < 2; ++axis) {
        double const value = LinePoints::number(*points, row, static_cast<vtkIdType>(2 + axis));
        QString const number = QString::fromStdString(TickLabels::exactly({value}).front());
        text += QStringLiteral("<br>%1 = %2").arg(variables[axis].toHtmlEscaped(), number);
    }
    return QStringLiteral("<p style='white-space:pre'>%1</p>").arg(text);
}

} // namespace veldraw::app

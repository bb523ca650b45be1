#pragma once

#include "app/plot/AxisTicks.h"

#include <QMarginsF>
#include <QRectF>
#include <QString>
#include <vtkAxis.h>
#include <vtkContextActor.h>
#include <vtkNew.h>

class vtkRenderer;

namespace veldraw::app {

/// A horizontal axis below and a vertical one left of a box, with round numbers at the ticks.
class PlaneAxes
{
public:
    /// @param ground draws the axes; must outlive this object
    explicit PlaneAxes(vtkRenderer& ground);

    void setTitles(QString const& bottom, QString const& left);

    /// Long names are broken into lines. @param box device pixels of the ground, origin at the bottom left
    void setBox(QRectF const& box, double pixelRatio);

    void setLimits(double xMin, double xMax, double yMin, double yMax);

    /// What the numbers and names need around the box, logical pixels. Wide numbers need more, but not a bit more each.
    QMarginsF margins() const;

    /// Gives an axis round ticks that stand clear of one another, in its present range.
    /// @param length of the axis, device pixels
    /// @param isLogarithmic the range is one of common logarithms
    static AxisTicks setTicks(vtkAxis& axis, double length, double pixelRatio, bool isLogarithmic = false);

    /// Gives an axis a name in as many lines as it needs, up to @p mostLines. @param length device pixels
    static void setTitle(vtkAxis& axis, QString const& title, double length, double pixelRatio, int mostLines);

private:
    void prepare(vtkAxis& axis, int position);
    double titleRoom(vtkAxis& axis) const;

    vtkNew<vtkContextActor> m_actor;
    vtkNew<vtkAxis> m_bottom;
    vtkNew<vtkAxis> m_left;
    vtkNew<vtkAxis> m_top;
    vtkNew<vtkAxis> m_right;
    QString m_bottomTitle;
    QString m_leftTitle;
    QRectF m_box;
    double m_ratio = 1.0;
    double m_leftLabels = 0.0;   // width of the widest number, logical pixels
    double m_bottomLabels = 0.0; // the same
};

} // namespace veldraw::app

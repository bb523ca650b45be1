#pragma once

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

    /// @param box device pixels of the ground, origin at the bottom left
    void setBox(QRectF const& box);

    void setLimits(double xMin, double xMax, double yMin, double yMax);

private:
    void prepare(vtkAxis& axis, int position);

    vtkNew<vtkContextActor> m_actor;
    vtkNew<vtkAxis> m_bottom;
    vtkNew<vtkAxis> m_left;
    vtkNew<vtkAxis> m_top;
    vtkNew<vtkAxis> m_right;
};

} // namespace veldraw::app

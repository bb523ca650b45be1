#pragma once

#include <QColor>
#include <vtkPen.h>

namespace veldraw::app {

/// A pen of VTK in a colour of Qt.
inline void setColour(vtkPen& pen, QColor const& colour)
{
    pen.SetColorF(colour.redF(), colour.greenF(), colour.blueF());
}

} // namespace veldraw::app

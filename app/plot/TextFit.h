#pragma once

#include <QString>

class vtkTextProperty;

namespace veldraw::app {

/// A text and its size as they fit into a given width.
struct TextFit
{
    QString text;
    int size; ///< logical pixels

    /// Makes a text that is too wide a little smaller first, then leaves out its middle: names of components differ at their
    /// ends.
    /// @param width device pixels; @param property typeface, its size is not looked at; @param pixelRatio device pixels a
    /// logical pixel
    static TextFit into(double width, QString const& text, vtkTextProperty& property, double pixelRatio);
};

} // namespace veldraw::app

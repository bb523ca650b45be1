#pragma once

#include <QSizeF>
#include <QString>

class vtkTextProperty;

namespace veldraw::app {

/// A text and its size as they fit into a given width.
struct TextFit
{
    QString text; ///< with line ends where it was broken
    int size;     ///< logical pixels
    bool isWhole; ///< nothing was left out

    /// Makes a text that is too wide a little smaller first, then breaks it into lines, at the ends of words where it can, and only
    /// then leaves out its middle: names of components differ at their ends.
    /// @param width device pixels; @param property typeface, its size is not looked at; @param pixelRatio device pixels a
    /// logical pixel; @param mostLines at least 1
    static TextFit into(double width, QString const& text, vtkTextProperty& property, double pixelRatio,
                        int mostLines = 1);

    /// What a text takes in the size of @p property, device pixels; as if it were not turned.
    static QSizeF sizeOf(QString const& text, vtkTextProperty& property, double pixelRatio);
};

} // namespace veldraw::app

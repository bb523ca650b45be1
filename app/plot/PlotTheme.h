#pragma once

#include <QColor>
#include <QFont>
#include <QPointF>
#include <QRectF>
#include <QSizeF>

class vtkTextProperty;

namespace veldraw::app {

/// Colours and type sizes of everything on the page, in one place.
class PlotTheme
{
public:
    static QColor desk() { return {0xE6, 0xE9, 0xEE}; }         ///< between and around the frames
    static QColor paper() { return {0xFF, 0xFF, 0xFF}; }        ///< inside a frame
    static QColor text() { return {0x2B, 0x33, 0x3F}; }         ///< axis titles, legends
    static QColor quietText() { return {0x5B, 0x66, 0x75}; }    ///< numbers, messages, headers of inactive frames
    static QColor axis() { return {0x7A, 0x85, 0x94}; }         ///< axis lines and outlines
    static QColor grid() { return {0xE4, 0xE8, 0xED}; }         ///< grid lines
    static QColor spaceGrid() { return {0xD3, 0xD9, 0xE1}; }    ///< grid lines behind a scene
    static QColor noValue() { return {0xB4, 0xB4, 0xB4}; }      ///< where a value is not a number
    static QColor shade() { return {0xB9, 0xC9, 0xDD}; }        ///< surfaces without a contour flood
    static QColor picked() { return {0xD6, 0x1F, 0x8B}; }       ///< around picked zones
    static QColor mesh() { return {0x2A, 0x30, 0x3A}; }         ///< cell edges
    static QColor border() { return {0xC3, 0xCA, 0xD4}; }       ///< border of an inactive frame
    static QColor header() { return {0xF4, 0xF6, 0xF9}; }       ///< header of an inactive frame
    static QColor accent() { return {0x2C, 0x6B, 0xD9}; }       ///< border of the active frame
    static QColor accentHeader() { return {0xDF, 0xEA, 0xFC}; } ///< header of the active frame
    static QColor accentText() { return {0x16, 0x3F, 0x86}; }   ///< header text of the active frame

    /// Colour of the n-th curve, zero-based; starts over after the last.
    static QColor curve(int index);

    /// Size of type in logical pixels.
    static constexpr int titleSize = 13;
    static constexpr int labelSize = 12;

    /// Colour, size and a typeface that knows more than Latin letters where the system has one.
    /// @param size logical pixels; the window's dots per inch account for high resolution
    static void apply(vtkTextProperty& property, QColor const& colour, int size, bool bold = false);

    /// The same typeface for Qt, in its size, logical pixels.
    static QFont fontOf(vtkTextProperty& property);
};

} // namespace veldraw::app

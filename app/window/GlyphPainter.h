#pragma once

#include "app/window/Icons.h"

#include <QColor>
#include <QPainter>

namespace veldraw::app {

/// Draws a glyph into a square of 16 by 16 units.
class GlyphPainter
{
public:
    /// @param ink colour of lines, @param accent colour of what the eye should find first
    GlyphPainter(QPainter& painter, QColor const& ink, QColor const& accent);

    void draw(Glyph glyph);

private:
    void drawFile(Glyph glyph);
    void drawTurnArrow(bool toTheLeft);
    void drawFrame(Glyph glyph);
    void drawPlot(Glyph glyph);
    void drawLayer(Glyph glyph);
    void drawNavigation(Glyph glyph);
    void drawPlayer(Glyph glyph);
    void useInk();
    void useAccent();
    void line(double x1, double y1, double x2, double y2);
    void polyline(std::initializer_list<QPointF> points);

    QPainter& m_painter;
    QColor m_ink;
    QColor m_accent;
};

} // namespace veldraw::app

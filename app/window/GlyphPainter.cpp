#include "app/window/GlyphPainter.h"

#include <QPainterPath>
#include <QPolygonF>

namespace veldraw::app {

GlyphPainter::GlyphPainter(QPainter& painter, QColor const& ink, QColor const& accent)
    : m_painter(painter)
    , m_ink(ink)
    , m_accent(accent)
{
    m_painter.setRenderHint(QPainter::Antialiasing);
}

void GlyphPainter::useInk()
{
    m_painter.setPen(QPen(m_ink, 1.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    m_painter.setBrush(Qt::NoBrush);
}

void GlyphPainter::useAccent()
{
    m_painter.setPen(QPen(m_accent, 1.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    m_painter.setBrush(Qt::NoBrush);
}

void GlyphPainter::line(double x1, double y1, double x2, double y2)
{
    m_painter.drawLine(QPointF(x1, y1), QPointF(x2, y2));
}

void GlyphPainter::polyline(std::initializer_list<QPointF> points)
{
    QPolygonF polygon;
    for (QPointF const& point : points)
        polygon << point;
    m_painter.drawPolyline(polygon);
}

void GlyphPainter::draw(Glyph glyph)
{
    useInk();
    switch (glyph) {
    case Glyph::Open:
    case Glyph::Save:
    case Glyph::Picture:
        return drawFile(glyph);
    case Glyph::Undo:
        return drawTurnArrow(true);
    case Glyph::Redo:
        return drawTurnArrow(false);
    case Glyph::Fit:
    case Glyph::NewFrame:
    case Glyph::DeleteFrame:
    case Glyph::TileFrames:
    case Glyph::ActiveFrame:
    case Glyph::InactiveFrame:
        return drawFrame(glyph);
    case Glyph::Plot3D:
    case Glyph::Plot2D:
    case Glyph::PlotLine:
    case Glyph::PlotSketch:
        return drawPlot(glyph);
    case Glyph::Contour:
    case Glyph::Mesh:
    case Glyph::DeleteVariable:
        return drawLayer(glyph);
    case Glyph::Help:
    case Glyph::Back:
    case Glyph::Forward:
    case Glyph::Index:
        return drawNavigation(glyph);
    case Glyph::ToFirst:
    case Glyph::StepBack:
    case Glyph::Play:
    case Glyph::Pause:
    case Glyph::StepOn:
    case Glyph::ToLast:
        return drawPlayer(glyph);
    }
}

void GlyphPainter::drawFile(Glyph glyph)
{
    if (glyph == Glyph::Open) {
        polyline({{2, 13}, {2, 3.5}, {6, 3.5}, {7.5, 5}, {13, 5}, {13, 7}});
        polyline({{2, 13}, {4.5, 7}, {15, 7}, {12.5, 13}, {2, 13}});
    } else if (glyph == Glyph::Save) {
        polyline({{2.5, 2.5}, {11.5, 2.5}, {13.5, 4.5}, {13.5, 13.5}, {2.5, 13.5}, {2.5, 2.5}});
        m_painter.drawRect(QRectF(5, 2.5, 5.5, 3.5));
        m_painter.drawRect(QRectF(4.5, 8.5, 7, 5));
    } else {
        m_painter.drawRect(QRectF(2, 3, 12, 10));
        m_painter.drawEllipse(QPointF(5.3, 6.2), 1.2, 1.2);
        useAccent();
        polyline({{3, 12}, {7, 8}, {9, 10}, {11, 7.5}, {13.3, 11}});
    }
}

void GlyphPainter::drawTurnArrow(bool toTheLeft)
{
    m_painter.save();
    if (!toTheLeft) {
        m_painter.translate(16, 0);
        m_painter.scale(-1, 1);
    }
    QPainterPath path(QPointF(3, 6));
    path.lineTo(10, 6);
    path.arcTo(QRectF(6.5, 6, 7, 7), 90, -180);
    path.lineTo(6, 13);
    m_painter.setPen(QPen(m_ink, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    m_painter.drawPath(path);
    polyline({{6, 3}, {3, 6}, {6, 9}});
    m_painter.restore();
}

void GlyphPainter::drawFrame(Glyph glyph)
{
    if (glyph == Glyph::TileFrames) {
        for (QRectF const& tile : {QRectF(2, 2.5, 5, 5), QRectF(9, 2.5, 5, 5), QRectF(2, 9, 5, 5), QRectF(9, 9, 5, 5)})
            m_painter.drawRect(tile);
    } else if (glyph == Glyph::Fit) {
        polyline({{2, 5}, {2, 2}, {5, 2}});
        polyline({{11, 2}, {14, 2}, {14, 5}});
        polyline({{14, 11}, {14, 14}, {11, 14}});
        polyline({{5, 14}, {2, 14}, {2, 11}});
        useAccent();
        m_painter.drawRect(QRectF(5, 5, 6, 6));
    } else if (glyph == Glyph::ActiveFrame || glyph == Glyph::InactiveFrame) {
        if (glyph == Glyph::ActiveFrame) {
            useAccent();
            QColor fill = m_accent;
            fill.setAlpha(90);
            m_painter.setBrush(fill);
        }
        m_painter.drawRect(QRectF(3, 4, 10, 8));
    } else {
        polyline({{8, 13}, {2, 13}, {2, 3}, {14, 3}, {14, 8}});
        line(2, 5.5, 14, 5.5);
        useAccent();
        line(10, 12, 15, 12);
        if (glyph == Glyph::NewFrame)
            line(12.5, 9.5, 12.5, 14.5);
    }
}

void GlyphPainter::drawPlot(Glyph glyph)
{
    if (glyph == Glyph::Plot3D) {
        polyline({{8, 2}, {13.5, 5}, {13.5, 11}, {8, 14}, {2.5, 11}, {2.5, 5}, {8, 2}});
        useAccent();
        polyline({{2.5, 5}, {8, 8}, {13.5, 5}});
        line(8, 8, 8, 14);
    } else if (glyph == Glyph::Plot2D) {
        polyline({{2.5, 2}, {2.5, 13.5}, {14, 13.5}});
        useAccent();
        m_painter.drawRect(QRectF(5.5, 4, 6, 6));
    } else if (glyph == Glyph::PlotLine) {
        polyline({{2.5, 2}, {2.5, 13.5}, {14, 13.5}});
        useAccent();
        polyline({{4, 11}, {7, 6}, {10, 9}, {13.5, 3.5}});
    } else {
        polyline({{3, 13}, {4, 9.5}, {11, 2.5}, {13.5, 5}, {6.5, 12}, {3, 13}});
        useAccent();
        line(9.5, 4, 12, 6.5);
    }
}

void GlyphPainter::drawLayer(Glyph glyph)
{
    if (glyph == Glyph::Contour) {
        for (int i = 0; i < 5; ++i) {
            m_painter.setPen(Qt::NoPen);
            m_painter.setBrush(
                QColor::fromHsvF(0.66 - 0.16 * i, 0.65, m_ink.alphaF() < 1 ? 0.75 : 0.9, m_ink.alphaF()));
            m_painter.drawRect(QRectF(2 + 2.4 * i, 3, 2.5, 10));
        }
        useInk();
        m_painter.drawRect(QRectF(2, 3, 12, 10));
    } else if (glyph == Glyph::Mesh) {
        m_painter.drawRect(QRectF(2, 2.5, 12, 11));
        for (double const x : {6.0, 10.0})
            line(x, 2.5, x, 13.5);
        for (double const y : {6.2, 9.9})
            line(2, y, 14, y);
    } else {
        polyline({{2.5, 4}, {8, 12}, {13.5, 4}});
        m_painter.setPen(QPen(QColor(200, 40, 40, m_ink.alpha()), 1.6, Qt::SolidLine, Qt::RoundCap));
        line(10, 10, 14.5, 14.5);
        line(14.5, 10, 10, 14.5);
    }
}

void GlyphPainter::drawNavigation(Glyph glyph)
{
    if (glyph == Glyph::Back || glyph == Glyph::Forward) {
        bool const back = glyph == Glyph::Back;
        m_painter.setPen(QPen(m_ink, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        line(3, 8, 13, 8);
        if (back)
            polyline({{7, 4}, {3, 8}, {7, 12}});
        else
            polyline({{9, 4}, {13, 8}, {9, 12}});
    } else if (glyph == Glyph::Index) {
        for (double const y : {4.0, 8.0, 12.0}) {
            line(6, y, 14, y);
            m_painter.drawPoint(QPointF(3, y));
        }
    } else {
        m_painter.drawEllipse(QPointF(8, 8), 6, 6);
        QPainterPath hook(QPointF(6, 6.3));
        hook.cubicTo(6, 3.6, 10.2, 3.8, 10, 6.3);
        hook.cubicTo(9.8, 8, 8, 7.8, 8, 9.6);
        m_painter.drawPath(hook);
        m_painter.drawPoint(QPointF(8, 11.8));
    }
}

void GlyphPainter::drawPlayer(Glyph glyph)
{
    bool const isBack = glyph == Glyph::ToFirst || glyph == Glyph::StepBack;
    m_painter.save();
    if (isBack) { // the others in a mirror
        m_painter.translate(16, 0);
        m_painter.scale(-1, 1);
    }
    m_painter.setPen(QPen(m_ink, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    m_painter.setBrush(m_ink);
    if (glyph == Glyph::Pause) {
        m_painter.drawRect(QRectF(4.5, 3.5, 1.5, 9));
        m_painter.drawRect(QRectF(10, 3.5, 1.5, 9));
    } else {
        double const left = glyph == Glyph::Play ? 5.0 : 3.0;
        m_painter.drawPolygon(QPolygonF({QPointF(left, 3.5), QPointF(left + 7, 8), QPointF(left, 12.5)}));
    }
    if (glyph != Glyph::Play && glyph != Glyph::Pause)
        line(13, 3.5, 13, 12.5);
    if (glyph == Glyph::ToFirst || glyph == Glyph::ToLast)
        line(10.6, 3.5, 10.6, 12.5);
    m_painter.restore();
}

} // namespace veldraw::app

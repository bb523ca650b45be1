#include "app/window/Icons.h"

#include "app/window/GlyphPainter.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QLinearGradient>
#include <QPainterPath>
#include <QPalette>

#include <map>
#include <string_view>

namespace veldraw::app {

namespace {

class GlyphIconEngine : public QIconEngine
{
public:
    explicit GlyphIconEngine(Glyph glyph)
        : m_glyph(glyph)
    {
    }

    void paint(QPainter* painter, QRect const& rect, QIcon::Mode mode, QIcon::State) override
    {
        QPalette const palette = QGuiApplication::palette();
        QColor ink = palette.color(mode == QIcon::Selected ? QPalette::HighlightedText : QPalette::WindowText);
        QColor accent = mode == QIcon::Selected ? ink : QColor(30, 110, 190);
        if (mode == QIcon::Disabled) {
            ink.setAlpha(80);
            accent.setAlpha(80);
        }
        double const side = std::min(rect.width(), rect.height());
        painter->save();
        painter->translate(rect.x() + (rect.width() - side) / 2, rect.y() + (rect.height() - side) / 2);
        painter->scale(side / 16, side / 16);
        GlyphPainter(*painter, ink, accent).draw(m_glyph);
        painter->restore();
    }

    QPixmap pixmap(QSize const& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return pixmap;
    }

    QIconEngine* clone() const override { return new GlyphIconEngine(m_glyph); }

private:
    Glyph m_glyph;
};

QPixmap applicationPixmap(int side)
{
    QPixmap pixmap(side, side);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(side / 16.0, side / 16.0);
    QLinearGradient colours(0, 14, 16, 2);
    colours.setColorAt(0, QColor(40, 60, 190));
    colours.setColorAt(0.5, QColor(40, 180, 140));
    colours.setColorAt(1, QColor(250, 190, 50));
    painter.setPen(Qt::NoPen);
    painter.setBrush(colours);
    painter.drawRoundedRect(QRectF(0.5, 0.5, 15, 15), 3, 3);
    painter.setPen(QPen(Qt::white, 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(QPolygonF({QPointF(4, 4.5), QPointF(8, 12), QPointF(12, 4.5)}));
    return pixmap;
}

} // namespace

QIcon makeIcon(Glyph glyph)
{
    return QIcon(new GlyphIconEngine(glyph));
}

QIcon iconNamed(char const* name)
{
    static std::map<std::string_view, Glyph> const glyphs{{"Contour", Glyph::Contour}, {"Mesh", Glyph::Mesh}};
    auto const found = glyphs.find(name);
    return found == glyphs.end() ? QIcon() : makeIcon(found->second);
}

QIcon applicationIcon()
{
    QIcon icon;
    for (int const side : {16, 32, 64, 128})
        icon.addPixmap(applicationPixmap(side));
    return icon;
}

} // namespace veldraw::app

#include "app/plot/PainterDevice.h"

#include "app/plot/PlotTheme.h"
#include "app/plot/TextFit.h"

#include <QImage>
#include <QPainterPath>
#include <vtkBrush.h>
#include <vtkImageData.h>
#include <vtkMatrix3x3.h>
#include <vtkNew.h>
#include <vtkObjectFactory.h>
#include <vtkPen.h>
#include <vtkRect.h>
#include <vtkTextProperty.h>
#include <vtkUnicodeString.h>

#include <algorithm>

namespace veldraw::app {

namespace {

Qt::PenStyle styleOf(int lineType)
{
    switch (lineType) {
    case vtkPen::NO_PEN:
        return Qt::NoPen;
    case vtkPen::DASH_LINE:
        return Qt::DashLine;
    case vtkPen::DOT_LINE:
        return Qt::DotLine;
    case vtkPen::DASH_DOT_LINE:
        return Qt::DashDotLine;
    case vtkPen::DASH_DOT_DOT_LINE:
        return Qt::DashDotDotLine;
    default:
        return Qt::SolidLine;
    }
}

QImage toImage(vtkImageData& image)
{
    int const* const size = image.GetDimensions();
    int const channels = image.GetNumberOfScalarComponents();
    QImage picture(size[0], size[1], QImage::Format_ARGB32);
    for (int y = 0; y < size[1]; ++y)
        for (int x = 0; x < size[0]; ++x) {
            auto const* const pixel = static_cast<unsigned char const*>(image.GetScalarPointer(x, y, 0));
            int const green = channels > 2 ? pixel[1] : pixel[0];
            int const blue = channels > 2 ? pixel[2] : pixel[0];
            int const alpha = channels == 4 ? pixel[3] : 255;
            picture.setPixel(x, size[1] - 1 - y, qRgba(pixel[0], green, blue, alpha));
        }
    return picture;
}

QTransform fromVtk(vtkMatrix3x3 const& matrix)
{
    auto const at = [&matrix](int row, int column) { return matrix.GetElement(row, column); };
    return {at(0, 0), at(1, 0), at(2, 0), at(0, 1), at(1, 1), at(2, 1), at(0, 2), at(1, 2), at(2, 2)};
}

// How far left of a place and above it a text of this size begins.
QPointF offset(vtkTextProperty& property, QSizeF const& size)
{
    double const shares[] = {0.0, 0.5, 1.0}; // left, centred, right; bottom, centred, top
    double const across = shares[std::clamp(property.GetJustification(), 0, 2)];
    double const up = shares[std::clamp(property.GetVerticalJustification(), 0, 2)];
    return {across * size.width(), (1.0 - up) * size.height()};
}

} // namespace

vtkStandardNewMacro(PainterDevice)

    void PainterDevice::begin(QPainter& painter, QRectF const& area, double pixelRatio)
{
    m_painter = &painter;
    m_area = area;
    m_ratio = pixelRatio;
    m_matrix = {};
    m_matrices.clear();
    m_clip = area;
    painter.save();
    painter.setClipRect(area, Qt::IntersectClip);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
}

void PainterDevice::end()
{
    m_painter->restore();
    m_painter = nullptr;
}

QPointF PainterDevice::onPaper(double x, double y) const
{
    QPointF const inScene = m_matrix.map(QPointF(x, y)) / m_ratio;
    return {m_area.left() + inScene.x(), m_area.bottom() - inScene.y()};
}

QPolygonF PainterDevice::onPaper(float const* points, int count) const
{
    QPolygonF polygon;
    polygon.reserve(count);
    for (int n = 0; n < count; ++n)
        polygon << onPaper(static_cast<double>(points[2 * n]), static_cast<double>(points[2 * n + 1]));
    return polygon;
}

QPen PainterDevice::pen() const
{
    unsigned char const* const colour = Pen->GetColor();
    return {QColor(colour[0], colour[1], colour[2], Pen->GetOpacity()), static_cast<double>(Pen->GetWidth()) / m_ratio,
            styleOf(Pen->GetLineType()), Qt::FlatCap, Qt::RoundJoin};
}

QBrush PainterDevice::brush() const
{
    unsigned char colour[4];
    Brush->GetColor(colour);
    return QColor(colour[0], colour[1], colour[2], Brush->GetOpacity());
}

void PainterDevice::fill(QPolygonF const& polygon)
{
    m_painter->setPen(Qt::NoPen);
    m_painter->setBrush(brush());
    m_painter->drawPolygon(polygon);
}

void PainterDevice::DrawPoly(float* points, int count, unsigned char*, int)
{
    m_painter->setPen(pen());
    m_painter->drawPolyline(onPaper(points, count));
}

void PainterDevice::DrawLines(float* points, int count, unsigned char*, int)
{
    QPolygonF const ends = onPaper(points, count);
    m_painter->setPen(pen());
    for (int n = 0; n + 1 < count; n += 2)
        m_painter->drawLine(ends[n], ends[n + 1]);
}

void PainterDevice::DrawPoints(float* points, int count, unsigned char*, int)
{
    QPen round = pen();
    round.setCapStyle(Qt::RoundCap);
    m_painter->setPen(round);
    m_painter->drawPoints(onPaper(points, count));
}

void PainterDevice::DrawPointSprites(vtkImageData* sprite, float* points, int count, unsigned char*, int)
{
    if (sprite == nullptr)
        return DrawPoints(points, count, nullptr, 0);
    QImage const picture = toImage(*sprite);
    QSizeF const size = QSizeF(picture.size()) / m_ratio;
    for (QPointF const& middle : onPaper(points, count))
        m_painter->drawImage(QRectF(middle - QPointF(0.5 * size.width(), 0.5 * size.height()), size), picture);
}

void PainterDevice::DrawQuad(float* points, int count)
{
    for (int first = 0; first + 4 <= count; first += 4)
        fill(onPaper(points + 2 * first, 4));
}

void PainterDevice::DrawQuadStrip(float* points, int count)
{
    QPolygonF const strip = onPaper(points, count);
    for (int first = 0; first + 4 <= count; first += 2)
        fill(QPolygonF({strip[first], strip[first + 1], strip[first + 3], strip[first + 2]}));
}

void PainterDevice::DrawColoredPolygon(float* points, int count, unsigned char*, int)
{
    fill(onPaper(points, count));
}

void PainterDevice::DrawEllipseWedge(float x, float y, float outerX, float outerY, float innerX, float innerY,
                                     float from, float to)
{
    auto const box = [x, y](float halfWidth, float halfHeight) {
        return QRectF(static_cast<double>(x - halfWidth), static_cast<double>(y - halfHeight),
                      2.0 * static_cast<double>(halfWidth), 2.0 * static_cast<double>(halfHeight));
    };
    // Qt's angles go the other way round, as its Y does.
    double const start = -static_cast<double>(from);
    double const sweep = static_cast<double>(from - to);
    QPainterPath path;
    path.arcMoveTo(box(outerX, outerY), start);
    path.arcTo(box(outerX, outerY), start, sweep);
    path.arcTo(box(innerX, innerY), start + sweep, -sweep);
    path.closeSubpath();
    QPolygonF polygon;
    for (QPointF const& point : path.toFillPolygon())
        polygon << onPaper(point.x(), point.y());
    fill(polygon);
}

void PainterDevice::DrawEllipticArc(float x, float y, float radiusX, float radiusY, float from, float to)
{
    QRectF const box(static_cast<double>(x - radiusX), static_cast<double>(y - radiusY),
                     2.0 * static_cast<double>(radiusX), 2.0 * static_cast<double>(radiusY));
    QPainterPath path;
    path.arcMoveTo(box, -static_cast<double>(from));
    path.arcTo(box, -static_cast<double>(from), static_cast<double>(from - to));
    QPolygonF line;
    for (QPolygonF const& part : path.toSubpathPolygons())
        for (QPointF const& point : part)
            line << onPaper(point.x(), point.y());
    fill(line);
    m_painter->setPen(pen());
    m_painter->drawPolyline(line);
}

void PainterDevice::drawText(QPointF const& at, QString const& text, vtkTextProperty& property)
{
    double const* const colour = property.GetColor();
    m_painter->save();
    m_painter->setFont(PlotTheme::fontOf(property));
    m_painter->setPen(QColor::fromRgbF(colour[0], colour[1], colour[2], property.GetOpacity()));
    m_painter->translate(onPaper(at.x(), at.y()));
    m_painter->rotate(-property.GetOrientation());
    QSizeF const size = m_painter->fontMetrics().size(0, text);
    double const raise = 0.1 * m_painter->fontMetrics().ascent(); // Qt leaves more room above letters than VTK
    int const across[] = {Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight};
    m_painter->drawText(QRectF(-offset(property, size) - QPointF(0.0, raise), size),
                        across[std::clamp(property.GetJustification(), 0, 2)] | Qt::TextDontClip, text);
    m_painter->restore();
}

void PainterDevice::DrawString(float* point, vtkStdString const& text)
{
    drawText({static_cast<double>(point[0]), static_cast<double>(point[1])}, QString::fromStdString(text), *TextProp);
}

void PainterDevice::DrawString(float* point, vtkUnicodeString const& text)
{
    DrawString(point, vtkStdString(text.utf8_str()));
}

void PainterDevice::DrawMathTextString(float* point, vtkStdString const& text)
{
    DrawString(point, text);
}

void PainterDevice::ComputeStringBounds(vtkStdString const& text, float bounds[4])
{
    ComputeJustifiedStringBounds(text.c_str(), bounds);
}

void PainterDevice::ComputeStringBounds(vtkUnicodeString const& text, float bounds[4])
{
    ComputeJustifiedStringBounds(text.utf8_str(), bounds);
}

// As large as on the screen, so that all stands where it stands there.
void PainterDevice::ComputeJustifiedStringBounds(char const* text, float bounds[4])
{
    QSizeF const size = TextFit::sizeOf(QString::fromUtf8(text), *TextProp, m_ratio);
    QRectF const turned = QTransform().rotate(TextProp->GetOrientation()).mapRect(QRectF(QPointF(), size));
    bounds[0] = 0.0F;
    bounds[1] = 0.0F;
    bounds[2] = static_cast<float>(turned.width());
    bounds[3] = static_cast<float>(turned.height());
}

void PainterDevice::DrawImage(float corner[2], float scale, vtkImageData* image)
{
    int const* const size = image->GetDimensions();
    DrawImage(vtkRectf(corner[0], corner[1], scale * static_cast<float>(size[0]), scale * static_cast<float>(size[1])),
              image);
}

void PainterDevice::DrawImage(vtkRectf const& place, vtkImageData* image)
{
    QPointF const low = onPaper(static_cast<double>(place.GetLeft()), static_cast<double>(place.GetBottom()));
    QPointF const high = onPaper(static_cast<double>(place.GetRight()), static_cast<double>(place.GetTop()));
    m_painter->drawImage(QRectF(low, high).normalized(), toImage(*image));
}

void PainterDevice::SetMatrix(vtkMatrix3x3* matrix)
{
    m_matrix = fromVtk(*matrix);
}

void PainterDevice::GetMatrix(vtkMatrix3x3* matrix)
{
    double const elements[3][3] = {{m_matrix.m11(), m_matrix.m21(), m_matrix.m31()},
                                   {m_matrix.m12(), m_matrix.m22(), m_matrix.m32()},
                                   {m_matrix.m13(), m_matrix.m23(), m_matrix.m33()}};
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 3; ++column)
            matrix->SetElement(row, column, elements[row][column]);
}

void PainterDevice::MultiplyMatrix(vtkMatrix3x3* matrix)
{
    m_matrix = fromVtk(*matrix) * m_matrix;
}

void PainterDevice::PushMatrix()
{
    m_matrices.push_back(m_matrix);
}

void PainterDevice::PopMatrix()
{
    if (m_matrices.empty())
        return;
    m_matrix = m_matrices.back();
    m_matrices.pop_back();
}

// The box counts in the scene, whatever the matrix.
void PainterDevice::SetClipping(int* box)
{
    m_clip = QRectF(m_area.left() + box[0] / m_ratio, m_area.bottom() - (box[1] + box[3]) / m_ratio, box[2] / m_ratio,
                    box[3] / m_ratio);
}

void PainterDevice::EnableClipping(bool enable)
{
    // What begin() was given clips always.
    m_painter->restore();
    m_painter->save();
    m_painter->setClipRect(enable ? m_clip & m_area : m_area, Qt::IntersectClip);
    m_painter->setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
}

} // namespace veldraw::app

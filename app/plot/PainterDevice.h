#pragma once

#include <QPainter>
#include <QPolygonF>
#include <QTransform>
#include <vtkContextDevice2D.h>

#include <vector>

namespace veldraw::app {

/// Has Qt paint what VTK paints in two dimensions: axes, curves, legends and texts, as lines and letters instead of pixels.
///
///     vtkNew<PainterDevice> device;
///     device->begin(painter, area, pixelRatio);
///     vtkNew<vtkContext2D> context;
///     context->Begin(device);
///     scene.Paint(context);
///     context->End();
///     device->end();
///
/// VTK's own devices for files know Latin letters only, and cannot paint beside Qt. Colours that change within one shape, and textures of
/// areas, are not painted.
class PainterDevice : public vtkContextDevice2D
{
public:
    vtkTypeMacro(PainterDevice, vtkContextDevice2D) static PainterDevice* New();

    /// @param painter in logical pixels; must outlive the painting
    /// @param area of the scene on the paper, logical pixels; nothing is painted outside of it
    /// @param pixelRatio device pixels, in which the scene counts, a logical pixel
    void begin(QPainter& painter, QRectF const& area, double pixelRatio);
    void end();

    /// Paints a text as its property says.
    /// @param at in the scene, device pixels from the bottom left
    void drawText(QPointF const& at, QString const& text, vtkTextProperty& property);

    void DrawPoly(float* points, int count, unsigned char* colours, int channels) override;
    void DrawLines(float* points, int count, unsigned char* colours, int channels) override;
    void DrawPoints(float* points, int count, unsigned char* colours, int channels) override;
    void DrawPointSprites(vtkImageData* sprite, float* points, int count, unsigned char* colours,
                          int channels) override;
    void DrawQuad(float* points, int count) override;
    void DrawQuadStrip(float* points, int count) override;
    void DrawColoredPolygon(float* points, int count, unsigned char* colours, int channels) override;
    void DrawEllipseWedge(float x, float y, float outerX, float outerY, float innerX, float innerY, float from,
                          float to) override;
    void DrawEllipticArc(float x, float y, float radiusX, float radiusY, float from, float to) override;
    void DrawString(float* point, vtkStdString const& text) override;
    void DrawString(float* point, vtkUnicodeString const& text) override;
    void ComputeStringBounds(vtkStdString const& text, float bounds[4]) override;
    void ComputeStringBounds(vtkUnicodeString const& text, float bounds[4]) override;
    void ComputeJustifiedStringBounds(char const* text, float bounds[4]) override;
    void DrawMathTextString(float* point, vtkStdString const& text) override;
    void DrawImage(float corner[2], float scale, vtkImageData* image) override;
    void DrawImage(vtkRectf const& place, vtkImageData* image) override;

    // The pen and the brush say it.
    void SetColor4(unsigned char[4]) override {}
    void SetTexture(vtkImageData*, int) override {}
    void SetPointSize(float) override {}
    void SetLineWidth(float) override {}
    void SetLineType(int) override {}

    void SetMatrix(vtkMatrix3x3* matrix) override;
    void GetMatrix(vtkMatrix3x3* matrix) override;
    void MultiplyMatrix(vtkMatrix3x3* matrix) override;
    void PushMatrix() override;
    void PopMatrix() override;
    void SetClipping(int* box) override;
    void EnableClipping(bool enable) override;

    PainterDevice(PainterDevice const&) = delete;
    PainterDevice& operator=(PainterDevice const&) = delete;

protected:
    PainterDevice() = default;
    ~PainterDevice() override = default;

private:
    QPointF onPaper(double x, double y) const;
    QPolygonF onPaper(float const* points, int count) const;
    QPen pen() const;
    QBrush brush() const;
    void fill(QPolygonF const& polygon);

    QPainter* m_painter = nullptr;
    QRectF m_area;
    double m_ratio = 1.0;
    QTransform m_matrix; // from the item that is painted to the scene
    std::vector<QTransform> m_matrices;
    QRectF m_clip; // on the paper
};

} // namespace veldraw::app

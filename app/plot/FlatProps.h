#pragma once

#include <QPainter>
#include <QRectF>
#include <vtkProp.h>
#include <vtkSmartPointer.h>

#include <vector>

class vtkRenderer;

namespace veldraw::app {

/// What a renderer draws flat over its scene: axes, curves, legends, texts. They can be left out of its picture for a while, and be painted by
/// Qt instead.
class FlatProps
{
public:
    /// Those that are visible now. @param renderer must outlive this object
    explicit FlatProps(vtkRenderer& renderer);

    /// Shows all of them again.
    ~FlatProps();

    void hide();

    /// Paints them as the renderer drew them last, whether they are hidden or not.
    /// @param painter in logical pixels @param area of the renderer on the paper
    /// @param pixelRatio device pixels of the renderer a logical pixel
    void paint(QPainter& painter, QRectF const& area, double pixelRatio) const;

    FlatProps(FlatProps const&) = delete;
    FlatProps& operator=(FlatProps const&) = delete;

private:
    std::vector<vtkSmartPointer<vtkProp>> m_props;
};

} // namespace veldraw::app

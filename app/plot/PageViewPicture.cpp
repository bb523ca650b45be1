// Pictures of a page view.
#include "app/plot/FlatProps.h"
#include "app/plot/FrameView.h"
#include "app/plot/PageOverlay.h"
#include "app/plot/PageView.h"
#include "app/plot/PlotTheme.h"

#include <QPainter>
#include <QScopeGuard>
#include <QTimer>
#include <vtkUnsignedCharArray.h>

#include <new>

namespace veldraw::app {

namespace {

/// VTK's window in another size and resolution, for as long as this object lives.
class WindowSize
{
public:
    WindowSize(vtkGenericOpenGLRenderWindow& window, QSize const& pixels, double magnification)
        : m_window(window)
        , m_before(window.GetSize()[0], window.GetSize()[1])
        , m_resolution(window.GetDPI())
    {
        m_window.SetSize(pixels.width(), pixels.height());
        m_window.SetDPI(qRound(m_resolution * magnification));
    }

    ~WindowSize()
    {
        m_window.SetDPI(m_resolution);
        m_window.SetSize(m_before.width(), m_before.height());
    }

    WindowSize(WindowSize const&) = delete;
    WindowSize& operator=(WindowSize const&) = delete;

private:
    vtkGenericOpenGLRenderWindow& m_window;
    QSize m_before;
    int m_resolution;
};

} // namespace

QImage PageView::grabImage()
{
    if (m_timer->isActive())
        refresh();
    finishDrawing();
    return grab().toImage();
}

void PageView::finishDrawing()
{
    while (m_session.isDrawing() && isDrawing()) {
        for (auto& [id, slot] : m_slots)
            if (slot.view && slot.view->isWaiting()) {
                slot.view->wait();
                slot.isStale = true;
            }
        refresh();
    }
}

QImage PageView::takePicture(PictureOptions const& options)
{
    QImage picture;
    onSheet(options, [&] { picture = pictureOnSheet(); });
    return picture;
}

void PageView::paintPicture(QPainter& painter, PictureOptions const& options)
{
    onSheet(options, [&] { paintOnSheet(painter); });
}

void PageView::onSheet(PictureOptions const& options, std::function<void()> const& work)
{
    double const screenRatio = devicePixelRatioF();
    double const ratio = options.scale == 0.0 ? screenRatio : options.scale;
    auto const back = qScopeGuard([this] {
        layOutOn({});
        refresh();
    });
    layOutOn(
        Sheet{options.size.isEmpty() ? size() : options.size, ratio, options.activeFrameOnly, options.isTransparent});
    WindowSize const pictureSize(*m_window, options.pixels(size(), screenRatio), ratio / screenRatio);
    refresh();
    finishDrawing();
    work();
}

void PageView::layOutOn(std::optional<Sheet> const& sheet)
{
    m_sheet = sheet;
    QColor const ground = isTransparent() ? QColor(Qt::black) : sheet ? PlotTheme::paper() : PlotTheme::desk();
    m_desk->SetBackground(ground.redF(), ground.greenF(), ground.blueF());
    m_desk->SetBackgroundAlpha(isTransparent() ? 0.0 : 1.0);
}

QImage PageView::pictureOnSheet()
{
    QImage picture = readWindow();
    if (picture.isNull())
        return picture;
    QPainter painter(&picture);
    painter.scale(m_sheet->pixelRatio, m_sheet->pixelRatio);
    m_overlay->paintMessages(painter, isTransparent());
    return picture;
}

void PageView::paintOnSheet(QPainter& painter)
{
    std::map<FrameView*, std::vector<std::unique_ptr<FlatProps>>> flat;
    for (FrameView* const view : m_drawn)
        for (vtkRenderer* const renderer : view->renderers())
            flat[view].push_back(std::make_unique<FlatProps>(*renderer));
    for (auto const& [view, props] : flat)
        for (auto const& ofRenderer : props)
            ofRenderer->hide();
    m_window->Render();
    QImage const scenes = readWindow();
    if (scenes.isNull())
        throw std::bad_alloc();
    double const ratio = m_sheet->pixelRatio;
    if (!isTransparent())
        painter.fillRect(QRectF(sheetRect()), PlotTheme::paper());
    for (FrameView* const view : m_drawn) {
        std::vector<vtkRenderer*> const renderers = view->renderers();
        for (std::size_t n = 0; n < renderers.size(); ++n) {
            QRectF const area = onPaper(*renderers[n]);
            if (n > 0)
                painter.drawImage(area, scenes, QRectF(area.topLeft() * ratio, area.size() * ratio));
            else if (!isTransparent())
                painter.fillRect(area, PlotTheme::paper());
            flat[view][n]->paint(painter, area, ratio);
        }
    }
    m_overlay->paintMessages(painter, isTransparent());
}

// The place of a renderer, logical pixels from the top left corner of the picture.
QRectF PageView::onPaper(vtkRenderer& renderer) const
{
    double const* const share = renderer.GetViewport();
    double const width = sheetRect().width();
    double const height = sheetRect().height();
    return {share[0] * width, (1.0 - share[3]) * height, (share[2] - share[0]) * width, (share[3] - share[1]) * height};
}

// What VTK has drawn; an empty sheet where it cannot draw.
QImage PageView::readWindow()
{
    int const* const size = m_window->GetSize();
    if (!m_canvas) {
        QImage empty(size[0], size[1], QImage::Format_ARGB32_Premultiplied);
        empty.fill(isTransparent() ? QColor(Qt::transparent) : PlotTheme::paper());
        return empty;
    }
    vtkNew<vtkUnsignedCharArray> pixels;
    if (m_window->GetRGBACharPixelData(0, 0, size[0] - 1, size[1] - 1, 0, pixels) != 1)
        return {};
    QImage const read(pixels->GetPointer(0), size[0], size[1], 4 * size[0],
                      isTransparent() ? QImage::Format_RGBA8888_Premultiplied : QImage::Format_RGBX8888);
    return read.mirrored().convertToFormat(isTransparent() ? QImage::Format_ARGB32_Premultiplied
                                                           : QImage::Format_RGB32);
}

} // namespace veldraw::app

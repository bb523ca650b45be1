#include "tests/app/support/PlotTestPage.h"

#include "tests/app/support/PictureDifference.h"

#include <QApplication>
#include <QDir>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>

#include <algorithm>
#include <cstdlib>
#include <stdexcept>

namespace veldraw::tests {

namespace {

constexpr int patience = 10000; // milliseconds

} // namespace

PlotTestPage::PlotTestPage(std::vector<std::shared_ptr<kernel::Frame>> frames, QSize size)
{
    if (frames.empty())
        m_session.clear();
    else
        m_session.openPage(std::move(frames));
    m_view = std::make_unique<app::PageView>(m_session);
    m_view->resize(size);
    m_view->show();
    if (!QTest::qWaitForWindowExposed(m_view.get()))
        throw std::runtime_error("the window does not appear");
    settle();
}

PlotTestPage::~PlotTestPage() = default;

void PlotTestPage::settle()
{
    QGuiApplication::sync();
    QCoreApplication::processEvents(QEventLoop::AllEvents, patience);
}

app::FieldView& PlotTestPage::field(std::size_t index)
{
    return dynamic_cast<app::FieldView&>(*m_view->frameView(frame(index).id));
}

app::LineView& PlotTestPage::lines(std::size_t index)
{
    return dynamic_cast<app::LineView&>(*m_view->frameView(frame(index).id));
}

QImage PlotTestPage::picture(std::string const& name)
{
    QImage const image = m_view->grabImage();
    if (!name.empty())
        save(image, name);
    return image;
}

void PlotTestPage::save(QImage const& image, std::string const& name)
{
    QString const folder = QStringLiteral(VELDRAW_PLOT_PICTURES);
    QDir().mkpath(folder);
    image.save(folder + QLatin1Char('/') + QString::fromStdString(name) + QStringLiteral(".png"));
}

QImage PlotTestPage::plot(std::size_t index, std::string const& name)
{
    QImage const all = picture(name);
    qreal const ratio = all.devicePixelRatio();
    QRect const area = m_view->plotArea(frame(index).id);
    return all.copy(QRect(QPoint(area.topLeft() * ratio), QSize(area.size() * ratio)));
}

QPoint PlotTestPage::at(double x, double y, std::size_t index)
{
    QRect const area = m_view->plotArea(frame(index).id);
    return {area.left() + static_cast<int>(x * area.width()), area.top() + static_cast<int>(y * area.height())};
}

void PlotTestPage::click(QPoint const& position)
{
    QTest::mouseClick(m_view->windowHandle(), Qt::LeftButton, {}, position);
    settle();
}

void PlotTestPage::drag(QPoint const& from, QPoint const& to, Qt::MouseButton button, Qt::KeyboardModifiers modifiers)
{
    QWindow* const window = m_view->windowHandle();
    QTest::mousePress(window, button, modifiers, from);
    for (int step = 1; step <= 8; ++step) {
        QPoint const position = from + (to - from) * step / 8;
        QMouseEvent move(QEvent::MouseMove, position, window->mapToGlobal(position), Qt::NoButton, button, modifiers);
        QApplication::sendEvent(window, &move);
    }
    QTest::mouseRelease(window, button, modifiers, to);
    settle();
}

void PlotTestPage::wheel(QPoint const& position, int notches)
{
    QWindow* const window = m_view->windowHandle();
    QWheelEvent turn(position, window->mapToGlobal(position), {}, QPoint(0, 120 * notches), Qt::NoButton, {},
                     Qt::NoScrollPhase, false);
    QApplication::sendEvent(window, &turn);
    settle();
}

namespace {

template <typename Predicate>
int count(QImage const& image, Predicate predicate)
{
    QImage const plain = image.convertToFormat(QImage::Format_RGB32);
    int pixels = 0;
    for (int y = 0; y < plain.height(); ++y) {
        auto const* const row = reinterpret_cast<QRgb const*>(plain.constScanLine(y));
        pixels += static_cast<int>(std::count_if(row, row + plain.width(), predicate));
    }
    return pixels;
}

} // namespace

int PlotTestPage::colouredPixels(QImage const& image)
{
    return count(image, [](QRgb c) {
        auto const [low, high] = std::minmax({qRed(c), qGreen(c), qBlue(c)});
        return high - low > 48;
    });
}

int PlotTestPage::inkedPixels(QImage const& image)
{
    return count(image, [](QRgb c) { return std::min({qRed(c), qGreen(c), qBlue(c)}) < 235; });
}

int PlotTestPage::pixelsNear(QImage const& image, QColor const& colour, int tolerance)
{
    return count(image, [&](QRgb c) {
        return std::abs(qRed(c) - colour.red()) <= tolerance && std::abs(qGreen(c) - colour.green()) <= tolerance &&
               std::abs(qBlue(c) - colour.blue()) <= tolerance;
    });
}

int PlotTestPage::differingPixels(QImage const& a, QImage const& b)
{
    return tests::differingPixels(a, b);
}

} // namespace veldraw::tests

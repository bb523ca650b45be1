#pragma once

#include "app/plot/FieldView.h"
#include "app/plot/LineView.h"
#include "app/plot/PageView.h"
#include "kernel/session/Session.h"

#include <QImage>

#include <memory>
#include <string>
#include <vector>

namespace veldraw::tests {

/// A session with a page on the screen.
class PlotTestPage
{
public:
    /// @param frames on one page, side by side; none: an empty page
    explicit PlotTestPage(std::vector<std::shared_ptr<kernel::Frame>> frames, QSize size = {900, 640});
    ~PlotTestPage();

    kernel::Session& session() { return m_session; }
    app::PageView& view() { return *m_view; }
    kernel::Frame& frame(std::size_t index = 0) { return *m_session.activePage()->frames.at(index); }
    app::FieldView& field(std::size_t index = 0);
    app::LineView& lines(std::size_t index = 0);

    /// The picture when it is up to date, which it need not be yet on the screen.
    /// @param name also saved under this name for the eye
    QImage picture(std::string const& name = {});

    /// Saves a picture under this name for the eye.
    static void save(QImage const& image, std::string const& name);

    /// The frame's plot alone.
    QImage plot(std::size_t index = 0, std::string const& name = {});

    QString message(std::size_t index = 0) { return m_view->message(frame(index).id); }

    /// Real events through the window, at a share of the plot (0, 0 at the top left).
    QPoint at(double x, double y, std::size_t index = 0);
    void click(QPoint const& position);
    void drag(QPoint const& from, QPoint const& to, Qt::MouseButton button = Qt::LeftButton,
              Qt::KeyboardModifiers modifiers = {});
    void wheel(QPoint const& position, int notches);

    /// Lets the event loop run until the display has told all it has and nothing is left to do; work aside may go on.
    static void settle();

    /// Pixels that are neither white nor any grey.
    static int colouredPixels(QImage const& image);
    /// Pixels that differ from white.
    static int inkedPixels(QImage const& image);
    /// Pixels within @p tolerance of a colour in every channel.
    static int pixelsNear(QImage const& image, QColor const& colour, int tolerance = 14);
    static int differingPixels(QImage const& a, QImage const& b);

private:
    kernel::Session m_session;
    std::unique_ptr<app::PageView> m_view;
};

} // namespace veldraw::tests

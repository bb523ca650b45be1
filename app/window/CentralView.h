#pragma once

#include <QImage>

#include <functional>

class QWidget;

namespace veldraw::kernel {
class Session;
}

namespace veldraw::app {

/// What the main window has in its middle and what it asks of it. A view of the page in the program; anything in tests that
/// have no display.
struct CentralView
{
    QWidget* widget = nullptr; ///< becomes the main window's
    std::function<void()> fitActiveFrame = [] {};
    std::function<void()> fitAllFrames = [] {};
    /// The page without borders and headers.
    std::function<QImage()> grabImage = [] { return QImage(); };

    /// The page of @p session, drawn by VTK.
    static CentralView ofPage(kernel::Session& session);
};

} // namespace veldraw::app

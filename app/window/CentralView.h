#pragma once

#include "app/files/PictureOptions.h"
#include "app/plot/ProbedPlace.h"
#include "app/plot/ViewSide.h"
#include "app/window/PictureFile.h"

#include <QPoint>
#include <QString>

#include <functional>
#include <vector>

class QWidget;

namespace veldraw::kernel {
class Session;
}

namespace veldraw::app {

/// The widget in the middle of the main window, and the functions by which the window uses it. In the program it shows the
/// page; tests without a display use any other widget.
struct CentralView
{
    QWidget* widget = nullptr; ///< becomes the main window's
    std::function<void()> fitActiveFrame = [] {};
    std::function<void()> fitAllFrames = [] {};
    /// Shows the active frame alone, or all of them, and has a function called whenever that changes.
    std::function<void(bool)> maximizeFrame = [](bool) {};
    std::function<void(std::function<void(bool)>)> onMaximized = [](auto const&) {};
    /// Has a function called when the user asks for a menu, with the place on the screen and the one-based number of the zone that is seen there, or 0.
    std::function<void(std::function<void(QPoint const&, int)>)> onMenu = [](auto const&) {};
    std::function<void(ViewSide)> lookFrom = [](ViewSide) {}; ///< at the plot of the active frame
    /// What PageView can do with the view of the active frame, and what it says of that.
    std::function<bool(ViewStep)> goToView = [](ViewStep) { return false; };
    std::function<bool()> copyView = [] { return false; };
    std::function<bool()> pasteView = [] { return false; };
    std::function<int()> rememberView = [] { return 0; };
    std::function<bool(int)> recallView = [](int) { return false; };
    std::function<void(bool)> linkViews = [](bool) {};
    /// Says that a file is being opened, by its name; empty: none is any more.
    std::function<void(QString const& fileName)> showOpening = [](QString const&) {};
    /// Whether a part of the picture is still being computed.
    std::function<bool()> isDrawing = [] { return false; };
    /// Whether a click in a plot probes the place under the mouse without a key.
    std::function<void(bool)> probeByClick = [](bool) {};
    /// Has a function called with each place that the user probes.
    std::function<void(std::function<void(ProbedPlace const&)>)> onProbe = [](auto const&) {};
    /// Marks these places in the plots, and no others.
    std::function<void(std::vector<ProbedPlace>)> markProbes = [](auto const&) {};
    /// A picture of the page without borders and headers.
    std::function<PagePicture(PictureOptions const&)> picture = [](auto const&) { return PagePicture(); };

    /// The page of @p session, drawn by VTK.
    static CentralView ofPage(kernel::Session& session);
};

} // namespace veldraw::app

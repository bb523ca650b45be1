#pragma once

#include <QCoreApplication>
#include <QSize>
#include <QString>

namespace veldraw::app {

/// What a picture of the page is to be like; as it stands, like the page on the screen.
struct PictureOptions
{
    Q_DECLARE_TR_FUNCTIONS(veldraw::app::PictureOptions)

public:
    QSize size;                   ///< of what is laid out in it, logical pixels; empty: that of the page on the screen
    double scale = 0.0;           ///< device pixels a logical one; 0: as on the screen
    bool isTransparent = false;   ///< nothing behind the plots; else white
    bool activeFrameOnly = false; ///< the active frame fills the picture

    static constexpr int smallestSide = 16;       ///< logical pixels
    static constexpr int longestSide = 16384;     ///< device pixels
    static constexpr int mostPixels = 64'000'000; ///< device pixels in all
    static constexpr double smallestScale = 0.1;
    static constexpr double largestScale = 20.0;

    /// Why there can be no such picture; empty if there can. A size or a scale that the screen gives counts as possible.
    QString problem() const;

    /// Device pixels of the picture of a page that has this size, logical pixels, and this scale on the screen.
    QSize pixels(QSize const& onScreen, double screenScale) const;
};

} // namespace veldraw::app

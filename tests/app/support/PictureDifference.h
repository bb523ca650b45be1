#pragma once

#include <QImage>

#include <algorithm>
#include <cstdlib>

namespace veldraw::tests {

/// Number of pixels in which two pictures differ by more than the rounding of a software renderer that draws on several
/// threads: the same scene drawn twice may differ by one level of colour in single pixels. All of them when the sizes
/// differ.
inline int differingPixels(QImage const& a, QImage const& b)
{
    constexpr int rounding = 2;
    if (a.size() != b.size())
        return std::max(a.width() * a.height(), b.width() * b.height());
    int pixels = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            QRgb const p = a.pixel(x, y);
            QRgb const q = b.pixel(x, y);
            int const distance =
                std::max({std::abs(qRed(p) - qRed(q)), std::abs(qGreen(p) - qGreen(q)), std::abs(qBlue(p) - qBlue(q))});
            pixels += distance > rounding ? 1 : 0;
        }
    }
    return pixels;
}

} // namespace veldraw::tests

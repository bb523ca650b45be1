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
    QImage const plainA = a.convertToFormat(QImage::Format_RGB32);
    QImage const plainB = b.convertToFormat(QImage::Format_RGB32);
    int pixels = 0;
    for (int y = 0; y < a.height(); ++y) {
        auto const* const rowA = reinterpret_cast<QRgb const*>(plainA.constScanLine(y));
        auto const* const rowB = reinterpret_cast<QRgb const*>(plainB.constScanLine(y));
        for (int x = 0; x < a.width(); ++x) {
            QRgb const p = rowA[x];
            QRgb const q = rowB[x];
            if (p == q)
                continue;
            int const distance =
                std::max({std::abs(qRed(p) - qRed(q)), std::abs(qGreen(p) - qGreen(q)), std::abs(qBlue(p) - qBlue(q))});
            pixels += distance > rounding ? 1 : 0;
        }
    }
    return pixels;
}

} // namespace veldraw::tests

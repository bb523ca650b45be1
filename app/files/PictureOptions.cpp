#include "app/files/PictureOptions.h"

#include <algorithm>
#include <cmath>

namespace veldraw::app {

QString PictureOptions::problem() const
{
    if (scale != 0.0 && !(scale >= smallestScale && scale <= largestScale))
        return tr("The scale of a picture is between %1 and %2.").arg(smallestScale).arg(largestScale);
    if (size.isEmpty())
        return {};
    if (size.width() < smallestSide || size.height() < smallestSide)
        return tr("A picture is at least %1 pixels wide and high.").arg(smallestSide);
    QSize const made = pixels(size, 1.0);
    bool const isTooLarge = made.width() > longestSide || made.height() > longestSide ||
                            static_cast<double>(made.width()) * made.height() > mostPixels;
    return isTooLarge
               ? tr("A picture of %1 x %2 pixels is too large: it may have %3 along each side and %4 million in all.")
                     .arg(made.width())
                     .arg(made.height())
                     .arg(longestSide)
                     .arg(mostPixels / 1'000'000)
               : QString();
}

QSize PictureOptions::pixels(QSize const& onScreen, double screenScale) const
{
    QSize const logical = size.isEmpty() ? onScreen : size;
    double const factor = scale == 0.0 ? screenScale : scale;
    return {static_cast<int>(std::lround(std::min(logical.width() * factor, 1e9))),
            static_cast<int>(std::lround(std::min(logical.height() * factor, 1e9)))};
}

} // namespace veldraw::app

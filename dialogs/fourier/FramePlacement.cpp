#include "dialogs/fourier/FramePlacement.h"

#include "platform/vdsdkbase/VelUtilFrame.h"
#include "platform/vdsdkbase/VelUtilPage.h"

#include <algorithm>
#include <cmath>

namespace veldraw::sdk::ui::propertymanager {

namespace {

struct Grid
{
    int columns;
    double frameWidth;
    double frameHeight;
};

// On a paper that is nothing but long there is still one column, and one row.
int nearestCount(double number)
{
    return std::max(1, static_cast<int>(std::floor(number + 0.5)));
}

Grid gridFor(int frameCount, double paperWidth, double paperHeight)
{
    if (frameCount == 2)
        return {1, paperWidth, paperHeight * 0.5};
    int const columns = nearestCount(std::sqrt(frameCount * (paperWidth / paperHeight)));
    int const rows = nearestCount(static_cast<double>(frameCount) / columns);
    return {columns, paperWidth / columns, paperHeight / rows};
}

void fillWithFrames(Grid const& grid, int frameCount)
{
    double x = 0.0;
    double y = 0.0;
    int column = 0;
    for (int number = 1; number <= frameCount; ++number) {
        VelUtilFrameActivateByNumber(number);
        VelUtilFrameSetPosAndSize(x, y, grid.frameWidth, grid.frameHeight);
        x += grid.frameWidth;
        if (++column == grid.columns) {
            x = 0.0;
            column = 0;
            y += grid.frameHeight;
        }
    }
}

} // namespace

void placeFrameInCorner(long long sourceFrame, long long resultsFrame)
{
    double x = 0.0;
    double y = 0.0;
    double width = 0.0;
    double height = 0.0;
    VelUtilFrameActivateByUniqueID(sourceFrame);
    VelUtilFrameGetPosAndSize(&x, &y, &width, &height);
    width *= 0.5;
    height *= 0.5;
    VelUtilFrameActivateByUniqueID(resultsFrame);
    VelUtilFrameSetPosAndSize(x + width, y, width, height);
}

void tileFrames()
{
    double paperWidth = 0.0;
    double paperHeight = 0.0;
    VelUtilPaperGetDimensions(&paperWidth, &paperHeight);
    int const frameCount = VelUtilFrameGetCount();
    if (!(paperWidth > 0.0 && paperHeight > 0.0))
        return; // a paper without a size has no places
    long long const activeFrame = VelUtilFrameGetUniqueID();
    fillWithFrames(gridFor(frameCount, paperWidth, paperHeight), frameCount);
    VelUtilFrameActivateByUniqueID(activeFrame);
}

} // namespace veldraw::sdk::ui::propertymanager

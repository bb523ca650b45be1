#pragma once

/// @file
/// Pages, paper, views and drawing.

#include "platform/PlatformApi.h"
#include "platform/vdsdkbase/VelUtilTypes.h"

#ifdef __cplusplus
extern "C" {
#endif

/// Suspends or resumes drawing.
/// @param doDraw false: nothing is drawn until the next call with true, which draws what has changed meanwhile
VELDRAW_PLATFORM_API void VelUtilDrawGraphics(bool doDraw);

/// Number of pages.
VELDRAW_PLATFORM_API int VelUtilPageGetCount(void);

/// Size of the active page's paper in inches; 0 without a page.
VELDRAW_PLATFORM_API void VelUtilPaperGetDimensions(double* width, double* height);

/// Fits the axes of the active frame to its data. @return false when there is no frame or no data
VELDRAW_PLATFORM_API bool VelUtilViewDataFit(void);

/// Fits the work area to all frames of the active page. @return false when there is no page
VELDRAW_PLATFORM_API bool VelUtilWorkViewFitAllFrames(void);

#ifdef __cplusplus
}
#endif

#pragma once

/// @file
/// Frames of the active page. Positions and sizes in inches on the paper, from its top left corner.

#include "platform/PlatformApi.h"
#include "platform/vdsdkbase/VelUtilTypes.h"

#ifdef __cplusplus
extern "C" {
#endif

/// Activates a frame by its place in the drawing order.
/// @param number one-based
/// @return false for a number that does not exist
VELDRAW_PLATFORM_API bool VelUtilFrameActivateByNumber(int number);

/// Activates a frame. @return false when there is none of this unique identifier
VELDRAW_PLATFORM_API bool VelUtilFrameActivateByUniqueID(long long frameID);

/// Makes a frame and activates it.
/// @param useSuppliedSize false: the kernel chooses position and size, the four numbers are ignored
/// @param x left edge; a size of 0 is allowed
/// @param y top edge
/// @param width at least 0
/// @param height at least 0
/// @return false when there is no page
VELDRAW_PLATFORM_API bool VelUtilFrameCreateNew(bool useSuppliedSize, double x, double y, double width, double height);

/// Number of frames on the active page, 0 without a page.
VELDRAW_PLATFORM_API int VelUtilFrameGetCount(void);

/// Unique identifier of the data set that a frame shows, 0 when there is no such frame or it has none.
VELDRAW_PLATFORM_API long long VelUtilFrameGetDataSetUniqueIDByFrameID(long long frameID);

/// Name of the active frame.
/// @param name receives the name, UTF-8; the caller gives it back with VelUtilStringDealloc(). Null on failure
/// @return false when there is no frame
VELDRAW_PLATFORM_API bool VelUtilFrameGetName(char** name);

/// Plot type of the active frame: PlotType_e as a number, 0 without a frame.
VELDRAW_PLATFORM_API int VelUtilFrameGetPlotType(void);

/// Plot type of a frame: PlotType_e as a number, 0 when there is none of this unique identifier.
VELDRAW_PLATFORM_API int VelUtilFrameGetPlotTypeForFrame(long long frameID);

/// Position and size of the active frame; all 0 without a frame.
VELDRAW_PLATFORM_API void VelUtilFrameGetPosAndSize(double* x, double* y, double* width, double* height);

/// Unique identifier of the active frame, 0 when there is none.
VELDRAW_PLATFORM_API long long VelUtilFrameGetUniqueID(void);

/// Ends a walk over the frames; the frame that was active before it is active again.
VELDRAW_PLATFORM_API void VelUtilFrameLightweightLoopEnd(void);

/// Goes on to the next frame of a walk, which then counts as the active one; no event is sent.
/// @return false when there is no further frame
VELDRAW_PLATFORM_API bool VelUtilFrameLightweightLoopNext(void);

/// Starts a walk over the frames of the active page, standing on the first one. To be ended by
/// VelUtilFrameLightweightLoopEnd() if it returned true.
/// @return false when there is no frame
VELDRAW_PLATFORM_API bool VelUtilFrameLightweightLoopStart(void);

/// Gives a frame a data set, and axes, plot type and line maps that go with it.
/// @param dataSetID unique identifier of the data set
/// @param frameID unique identifier of the frame
/// @return false when either does not exist
VELDRAW_PLATFORM_API bool VelUtilFrameSetDataSet(long long dataSetID, long long frameID);

/// Renames the active frame.
/// @param name UTF-8, copied
/// @return false when there is no frame
VELDRAW_PLATFORM_API bool VelUtilFrameSetName(char const* name);

/// Sets the plot type of the active frame.
/// @param plotType PlotType_e as a number
/// @return SetValueReturnCode_Refused when there is no frame or no such type
VELDRAW_PLATFORM_API SetValueReturnCode_e VelUtilFrameSetPlotType(int plotType);

/// Moves and sizes the active frame.
/// @param x left edge
/// @param y top edge
/// @param width at least 0
/// @param height at least 0
/// @return false when there is no frame or a size is not allowed
VELDRAW_PLATFORM_API bool VelUtilFrameSetPosAndSize(double x, double y, double width, double height);

#ifdef __cplusplus
}
#endif

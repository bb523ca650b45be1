#pragma once

/// @file
/// The Fourier transform.

#include "platform/PlatformApi.h"
#include "platform/vdsdkbase/VelUtilTypes.h"

#ifdef __cplusplus
extern "C" {
#endif

/// Transforms dependent variables along one-dimensional ordered zones of the active data set: a result zone a source zone, and
/// three result variables a dependent variable, which follow each other: frequency, amplitude, phase in degrees. Arguments:
/// "IndependentVar" (int, one-based), "WindowFunction" (int, WindowFunction_e), "DependentVars" (set, without the
/// independent one), "SourceZones" (set), "IncludeConjugates" (int 0/1), "ObeySourceZoneBlanking" (int 0/1),
/// "ReplaceMatchingResultZones" (int 0/1), "ReplaceMatchingResultVariables" (int 0/1),
/// "FourierTransformResultingZones" (int, address of a Set_s*), "FourierTransformResultingVars" (int, address of a
/// Set_s*). The two handles have to be those of sets of the caller's, which get the numbers of the zones and variables
/// with the results; the handles stay as they are. Matching results, which may be replaced, are the latest ones of the
/// same source zone or variable.
/// @param list stays the caller's
/// @return false when an argument is missing or does not fit, when it was interrupted, or when the kernel refused, see the
///         last error; nothing changed then, the two sets included
VELDRAW_PLATFORM_API bool VelUtilFourierTransformX(ArgList_s* list);

/// Whether a zone of the active data set can be transformed: enabled, ordered, one dimension above 1, at least four
/// points.
/// @param zone one-based number
VELDRAW_PLATFORM_API bool VelUtilFourierTransformIsValidZone(int zone);

/// The same for a zone of another data set.
/// @param dataSetID unique identifier of the data set
/// @param zone one-based number
/// @return false also when there is no such data set
VELDRAW_PLATFORM_API bool VelUtilFourierTransformIsValidZoneByDataSetID(long long dataSetID, int zone);

#ifdef __cplusplus
}
#endif

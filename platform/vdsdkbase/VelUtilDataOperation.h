#pragma once

/// @file
/// Data operations. Each is all or nothing: false means that nothing changed and no event was sent.

#include "platform/PlatformApi.h"
#include "platform/vdsdkbase/VelUtilTypes.h"

#ifdef __cplusplus
extern "C" {
#endif

/// Appends a mirrored copy of each source zone of the active data set. Connectivity is shared with the source, so the
/// corners of a mirrored cell run the other way round.
/// @param sourceZones one-based numbers, not empty; stays the caller's
/// @param mirrorVar 'X', 'Y' or 'Z': the coordinate that is negated, and the vector component along it
/// @return false when a zone does not exist, the frame has no such axis, or the data set is locked, without memory, or when
///         it was interrupted
VELDRAW_PLATFORM_API bool VelUtilCreateMirrorZones(Set_s* sourceZones, char mirrorVar);

/// Appends copies of zones, turned about an axis. Copy k of a zone, from 1 on, stands at offset + k * angle.
/// @param dataSetID unique identifier of the data set
/// @param zones one-based numbers, not empty; stays the caller's
/// @param xyz three one-based numbers of the coordinate variables; the third counts only if @p is3D
/// @param is3D false: only X and Y are turned, about an axis along Z
/// @param uVar one-based number of the first vector component; ignored (may be null) unless @p hasVector
/// @param vVar the second vector component, likewise
/// @param wVar the third vector component, likewise, and only if @p is3D
/// @param hasVector true: the vector is turned with the coordinates
/// @param angle degrees from copy to copy, right-handed about the axis
/// @param offset degrees that are added to the angle of each copy
/// @param copies number of copies of each zone, at least 1
/// @param origin three coordinates of a point on the axis
/// @param axis three components of the axis' direction, not all 0; any length
/// @param addToStrands true: copies join the time strand of their source; false: they make up a new strand for each strand
///        and copy number. Copies of static zones are static either way
/// @return false when an argument does not fit the data set, without memory, or when it was interrupted
VELDRAW_PLATFORM_API bool VelUtilDataAxialDuplicate(long long dataSetID, Set_s* zones, int const* xyz, bool is3D,
                                                    int const* uVar, int const* vVar, int const* wVar, bool hasVector,
                                                    double angle, double offset, int copies, double const* origin,
                                                    double const* axis, bool addToStrands);

/// Turns zones about an axis, in place.
/// @param dataSetID unique identifier of the data set
/// @param zones one-based numbers, not empty; stays the caller's
/// @param xyz three one-based numbers of the coordinate variables; the third counts only if @p is3D
/// @param is3D false: only X and Y are turned, about an axis along Z
/// @param uVar one-based number of the first vector component; ignored (may be null) unless @p hasVector
/// @param vVar the second vector component, likewise
/// @param wVar the third vector component, likewise, and only if @p is3D
/// @param hasVector true: the vector is turned with the coordinates
/// @param angle degrees, right-handed about the axis
/// @param origin three coordinates of a point on the axis
/// @param axis three components of the axis' direction, not all 0; any length
/// @return false when an argument does not fit the data set, without memory, or when it was interrupted
VELDRAW_PLATFORM_API bool VelUtilDataRotate(long long dataSetID, Set_s* zones, int const* xyz, bool is3D,
                                            int const* uVar, int const* vVar, int const* wVar, bool hasVector,
                                            double angle, double const* origin, double const* axis);

/// Interpolates variables into a zone, weighted by the inverse distance from the source points.
/// @param sourceZones one-based numbers, not empty; stays the caller's
/// @param destinationZone one-based number; one of the sources too, whose values before the call count
/// @param variables one-based numbers, not empty, no axis variable; stays the caller's
/// @param exponent of the distance, above 0
/// @param minRadius smallest distance that counts, in units of the coordinates, at least 0
/// @param ptSelection PtSelection_e as a number
/// @param numPoints number of source points a destination point takes in; unused for PtSelection_All
/// @return false when an argument does not fit the active data set, without memory, or when it was interrupted
VELDRAW_PLATFORM_API bool VelUtilInverseDistInterpolation(Set_s* sourceZones, int destinationZone, Set_s* variables,
                                                          double exponent, double minRadius, int ptSelection,
                                                          int numPoints);

/// Interpolates variables into a zone by kriging.
/// @param sourceZones one-based numbers, not empty; stays the caller's
/// @param destinationZone one-based number; one of the sources too, whose values before the call count
/// @param variables one-based numbers, not empty, no axis variable; stays the caller's
/// @param range of the variogram, as a fraction of the diagonal of the source points' bounding box
/// @param zeroValue semivariance at distance 0 (nugget), with a sill of 1
/// @param drift Drift_e as a number
/// @param ptSelection PtSelection_e as a number
/// @param numPoints number of source points a destination point takes in; unused for PtSelection_All
/// @return false when an argument does not fit the active data set, without memory, or when it was interrupted
VELDRAW_PLATFORM_API bool VelUtilKrig(Set_s* sourceZones, int destinationZone, Set_s* variables, double range,
                                      double zeroValue, int drift, int ptSelection, long long numPoints);

/// Interpolates variables into a zone by the shape functions of the source cells.
/// @param sourceZones one-based numbers, not empty, of more than one dimension; stays the caller's
/// @param destinationZone one-based number; one of the sources too, whose values before the call count
/// @param variables one-based numbers, not empty, no axis variable; stays the caller's
/// @param constant value of points that lie in no source cell, for LinearInterpMode_SetToConstant
/// @param mode LinearInterpMode_e as a number
/// @return false when an argument does not fit the active data set, without memory, or when it was interrupted
VELDRAW_PLATFORM_API bool VelUtilLinearInterpolate(Set_s* sourceZones, int destinationZone, Set_s* variables,
                                                   double constant, int mode);

/// Smooths a variable of a zone of the active frame's data set.
/// @param zone one-based number
/// @param variable one-based number; in a field plot none that is on an axis, in a line plot the function of a line map
/// @param numberOfPasses at least 1
/// @param weight fraction by which a pass moves a value towards the mean of its neighbours, above 0 and at most 0.95
/// @param boundaryCondition BoundaryCondition_e as a number; the border of a finite-element zone is fixed whatever it is
/// @return false when an argument does not fit the frame and its data, without memory, or when it was interrupted
VELDRAW_PLATFORM_API bool VelUtilSmooth(int zone, int variable, int numberOfPasses, double weight,
                                        int boundaryCondition);

/// Appends a zone of triangles between the points of zones, in the plane of X and Y: their Delaunay triangulation. For 2D plots.
/// @param sourceZones one-based numbers, not empty; stays the caller's
/// @param useBoundaryZones true: the edges of @p boundaryZones become edges of triangles, and closed ones cut away what is outside
/// @param boundaryZones one-based numbers of ordered zones of one dimension, not empty; unused (may be null) without
///        @p useBoundaryZones
/// @param includeBoundaryPoints true: the points of the boundaries have the values of their zones; false: they get values
///        that are interpolated from the source zones
/// @param count receives the number of points that were left out since another one is at the same place, if it succeeds: of
///        the source zones, and with @p includeBoundaryPoints of the boundaries; may be null
/// @param keepFactor outer triangles whose inradius / circumradius is below it are removed, 0 to 0.5
/// @return false when an argument does not fit the active data set, without memory, or when it was interrupted
VELDRAW_PLATFORM_API bool VelUtilTriangulate(Set_s* sourceZones, bool useBoundaryZones, Set_s* boundaryZones,
                                             bool includeBoundaryPoints, long long* count, double keepFactor);

#ifdef __cplusplus
}
#endif

#pragma once

/// @file
/// Opaque kernel objects and the kernel's enumerations. The values are fixed: they travel as plain numbers.
/// Numbers of zones, variables, maps, frames, list entries and cell indices count from 1 unless said otherwise.
/// Unique identifiers are 64 bits wide, 0 = none. Texts are UTF-8.

#ifdef __cplusplus
extern "C" {
#else
#include <stdbool.h>
#endif

typedef struct Set_s Set_s;               ///< set of numbers
typedef struct ArgList_s ArgList_s;       ///< named arguments of a call
typedef struct StringList_s StringList_s; ///< list of texts

typedef enum
{
    PlotType_Cartesian3D = 1,
    PlotType_Cartesian2D = 2,
    PlotType_XYLine = 3,
    PlotType_Sketch = 4,
    PlotType_PolarLine = 5
} PlotType_e;

typedef enum
{
    ZoneType_Ordered = 0,
    ZoneType_FETriangle = 1,
    ZoneType_FEQuad = 2,
    ZoneType_FETetra = 3,
    ZoneType_FEBrick = 4,
    ZoneType_FELineSeg = 5,
    ZoneType_FEPolygon = 6,
    ZoneType_FEPolyhedron = 7,
    ZoneType_FEMixed = 8
} ZoneType_e;

/// Which dimensions of an ordered zone are above 1.
typedef enum
{
    ZoneOrder_I = 0,
    ZoneOrder_J = 1,
    ZoneOrder_K = 2,
    ZoneOrder_IJ = 3,
    ZoneOrder_IK = 4,
    ZoneOrder_JK = 5,
    ZoneOrder_IJK = 6
} ZoneOrder_e;

typedef enum
{
    FieldDataType_Float = 1,
    FieldDataType_Double = 2,
    FieldDataType_Int32 = 3,
    FieldDataType_Int16 = 4,
    FieldDataType_Byte = 5,
    FieldDataType_Bit = 6
} FieldDataType_e;

typedef enum
{
    ValueLocation_CellCentered = 0,
    ValueLocation_Nodal = 1
} ValueLocation_e;

typedef enum
{
    VarStatus_NotLoaded = 0,
    VarStatus_Passive = 1,
    VarStatus_Custom = 2,
    VarStatus_Map = 3,
    VarStatus_Loaded = 4
} VarStatus_e;

/// Unit of an angle.
typedef enum
{
    ThetaMode_Degrees = 0,
    ThetaMode_Radians = 1
} ThetaMode_e;

typedef enum
{
    IJKPlanes_I = 0,
    IJKPlanes_J = 1,
    IJKPlanes_K = 2
} IJKPlanes_e;

typedef enum
{
    NumberFormat_Integer = 0,
    NumberFormat_Float = 1,
    NumberFormat_Exponent = 2,
    NumberFormat_BestFloat = 3
} NumberFormat_e;

/// Which source points take part in an interpolation.
typedef enum
{
    PtSelection_All = 0,
    PtSelection_NearestN = 1,
    PtSelection_Octant = 2
} PtSelection_e;

typedef enum
{
    Drift_None = 0,
    Drift_Linear = 1,
    Drift_Quadratic = 2
} Drift_e;

/// What happens to points that lie in no source cell.
typedef enum
{
    LinearInterpMode_DontChange = 0,
    LinearInterpMode_SetToConstant = 1
} LinearInterpMode_e;

typedef enum
{
    BoundaryCondition_Fixed = 0,
    BoundaryCondition_FirstOrder = 1,
    BoundaryCondition_SecondOrder = 2
} BoundaryCondition_e;

typedef enum
{
    WindowFunction_Rectangular = 0,
    WindowFunction_Triangular = 1,
    WindowFunction_Hann = 2,
    WindowFunction_Hamming = 3
} WindowFunction_e;

typedef enum
{
    FourierPlotDisplayType_InCorner = 0,
    FourierPlotDisplayType_Tile = 1
} FourierPlotDisplayType_e;

/// Owners of auxiliary data.
typedef enum
{
    AuxDataLocation_Zone = 0,
    AuxDataLocation_DataSet = 1,
    AuxDataLocation_Frame = 2,
    AuxDataLocation_Var = 3,
    AuxDataLocation_LineMap = 4,
    AuxDataLocation_Page = 5,
    AuxDataLocation_Layout = 6
} AuxDataLocation_e;

typedef enum
{
    MessageBoxType_Error = 0,
    MessageBoxType_Warning = 1,
    MessageBoxType_Information = 2
} MessageBoxType_e;

/// Answer to a style write.
typedef enum
{
    SetValueReturnCode_Ok = 0,        ///< the value is in force
    SetValueReturnCode_Duplicate = 1, ///< the value was in force already
    SetValueReturnCode_Refused = 2,   ///< the value is not allowed; the last error text tells why
    SetValueReturnCode_Pending = 15   ///< accepted, but not in force yet
} SetValueReturnCode_e;

/// Answer to a style read.
typedef enum
{
    GetValueReturnCode_Ok = 0,
    GetValueReturnCode_Unknown = 1 ///< there is no such value
} GetValueReturnCode_e;

#ifdef __cplusplus
}
#endif

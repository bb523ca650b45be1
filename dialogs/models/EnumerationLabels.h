#pragma once

/// @file
/// What a person reads for the values of the kernel's enumerations, in the order in which dialogs offer them, which is not
/// always that of the values.

#include "dialogs/models/PremappedListModel.h"
#include "platform/vdsdkbase/VelUtilTypes.h"

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

inline constexpr LabelledValue<AuxDataLocation_e> auxDataLocationLabels[] = {
    {"Zone", AuxDataLocation_Zone},     {"Data set", AuxDataLocation_DataSet}, {"Frame", AuxDataLocation_Frame},
    {"Variable", AuxDataLocation_Var},  {"Line map", AuxDataLocation_LineMap}, {"Page", AuxDataLocation_Page},
    {"Layout", AuxDataLocation_Layout},
};

inline constexpr LabelledValue<BoundaryCondition_e> boundaryConditionLabels[] = {
    {"Fixed", BoundaryCondition_Fixed},
    {"First Order", BoundaryCondition_FirstOrder},
    {"Second Order", BoundaryCondition_SecondOrder},
};

inline constexpr LabelledValue<Drift_e> driftLabels[] = {
    {"Linear", Drift_Linear},
    {"None", Drift_None},
    {"Quadratic", Drift_Quadratic},
};

inline constexpr LabelledValue<FourierPlotDisplayType_e> fourierPlotDisplayTypeLabels[] = {
    {"In corner of source frame", FourierPlotDisplayType_InCorner},
    {"Tile with existing frames", FourierPlotDisplayType_Tile},
};

inline constexpr LabelledValue<IJKPlanes_e> ijkPlanesLabels[] = {
    {"I", IJKPlanes_I},
    {"J", IJKPlanes_J},
    {"K", IJKPlanes_K},
};

inline constexpr LabelledValue<NumberFormat_e> numberFormatLabels[] = {
    {"Integer", NumberFormat_Integer},
    {"Float", NumberFormat_Float},
    {"Exponent", NumberFormat_Exponent},
    {"Best Float", NumberFormat_BestFloat},
};

inline constexpr LabelledValue<PtSelection_e> ptSelectionLabels[] = {
    {"Nearest N", PtSelection_NearestN},
    {"Octant", PtSelection_Octant},
    {"All", PtSelection_All},
};

inline constexpr LabelledValue<ThetaMode_e> thetaModeLabels[] = {
    {"Degrees", ThetaMode_Degrees},
    {"Radians", ThetaMode_Radians},
};

inline constexpr LabelledValue<ValueLocation_e> valueLocationLabels[] = {
    {"Cell center", ValueLocation_CellCentered},
    {"Node", ValueLocation_Nodal},
};

inline constexpr LabelledValue<WindowFunction_e> windowFunctionLabels[] = {
    {"Rectangular", WindowFunction_Rectangular},
    {"Triangular", WindowFunction_Triangular},
    {"Hann", WindowFunction_Hann},
    {"Hamming", WindowFunction_Hamming},
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models

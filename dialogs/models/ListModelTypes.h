#pragma once

/// @file
/// The closed lists of value types for which the list model templates are compiled, each once.

#include "platform/vdsdkbase/VelUtilTypes.h"

/// Calls M(T) for each enumeration that a list offers as a choice.
#define VELDRAW_FOR_EACH_CHOICE_TYPE(M)                                                                                \
    M(AuxDataLocation_e)                                                                                               \
    M(BoundaryCondition_e)                                                                                             \
    M(Drift_e)                                                                                                         \
    M(FourierPlotDisplayType_e)                                                                                        \
    M(IJKPlanes_e)                                                                                                     \
    M(NumberFormat_e)                                                                                                  \
    M(PtSelection_e)                                                                                                   \
    M(ThetaMode_e)                                                                                                     \
    M(ValueLocation_e)                                                                                                 \
    M(WindowFunction_e)

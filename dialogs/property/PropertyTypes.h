#pragma once

/// @file
/// The closed lists of value types for which the property templates are compiled, each once.
/// A header names its instantiations by `extern template`, the one source of the same name makes them.

#include "platform/vdsdkbase/VelUtilTypes.h"

#include <set>
#include <string>

/// Calls M(T) for each type that a property can hold.
#define VELDRAW_FOR_EACH_HELD_TYPE(M)                                                                                  \
    M(bool)                                                                                                            \
    M(char)                                                                                                            \
    M(int)                                                                                                             \
    M(long long)                                                                                                       \
    M(double)                                                                                                          \
    M(std::string)                                                                                                     \
    M(std::set<int>)                                                                                                   \
    M(BoundaryCondition_e)                                                                                             \
    M(Drift_e)                                                                                                         \
    M(FourierPlotDisplayType_e)                                                                                        \
    M(IJKPlanes_e)                                                                                                     \
    M(LinearInterpMode_e)                                                                                              \
    M(NumberFormat_e)                                                                                                  \
    M(PtSelection_e)                                                                                                   \
    M(ThetaMode_e)                                                                                                     \
    M(ValueLocation_e)                                                                                                 \
    M(WindowFunction_e)

/// Calls M(T) for each type that a property can have, held or computed.
#define VELDRAW_FOR_EACH_PROPERTY_TYPE(M)                                                                              \
    VELDRAW_FOR_EACH_HELD_TYPE(M)                                                                                      \
    M(AuxDataLocation_e)                                                                                               \
    M(VarStatus_e)

/// Calls M(T) for each type whose properties an application hands to what the library exports, so that it can have its own.
#define VELDRAW_FOR_EACH_SHARED_TYPE(M)                                                                                \
    M(bool)                                                                                                            \
    M(int)                                                                                                             \
    M(long long)                                                                                                       \
    M(double)                                                                                                          \
    M(std::string)                                                                                                     \
    M(std::set<int>)                                                                                                   \
    M(FourierPlotDisplayType_e)                                                                                        \
    M(IJKPlanes_e)                                                                                                     \
    M(PtSelection_e)                                                                                                   \
    M(ThetaMode_e)                                                                                                     \
    M(WindowFunction_e)

/// Calls M(T) for each type that has bounds.
#define VELDRAW_FOR_EACH_BOUNDED_TYPE(M)                                                                               \
    M(int)                                                                                                             \
    M(long long)                                                                                                       \
    M(double)

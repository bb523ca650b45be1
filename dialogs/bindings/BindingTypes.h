#pragma once

/// @file
/// The closed lists of value types for which the binding templates are compiled, each once.

#include "dialogs/models/ListModelTypes.h"
#include "platform/vdsdkbase/VelUtilTypes.h"

#include <string>

/// Calls M(T) for each type that the bindings inside the library tie to a widget; `std::string` is exported and stands
/// apart.
#define VELDRAW_FOR_EACH_LOCALLY_BOUND_TYPE(M)                                                                         \
    M(int)                                                                                                             \
    M(long long)                                                                                                       \
    M(double)                                                                                                          \
    M(bool)                                                                                                            \
    M(char)                                                                                                            \
    M(AuxDataLocation_e)                                                                                               \
    M(BoundaryCondition_e)                                                                                             \
    M(Drift_e)                                                                                                         \
    M(FourierPlotDisplayType_e)                                                                                        \
    M(IJKPlanes_e)                                                                                                     \
    M(LinearInterpMode_e)                                                                                              \
    M(NumberFormat_e)                                                                                                  \
    M(PtSelection_e)                                                                                                   \
    M(ValueLocation_e)                                                                                                 \
    M(ThetaMode_e)                                                                                                     \
    M(WindowFunction_e)

/// Calls M(T) for each type that bindings with Qt slots of their own tie to a widget.
#define VELDRAW_FOR_EACH_QOBJECT_BOUND_TYPE(M)                                                                         \
    M(int)                                                                                                             \
    M(long long)                                                                                                       \
    M(double)                                                                                                          \
    M(bool)                                                                                                            \
    M(std::string)

/// Calls M(T) for each type of which radio buttons offer single values.
#define VELDRAW_FOR_EACH_RADIO_BUTTON_TYPE(M)                                                                          \
    M(bool)                                                                                                            \
    M(char)                                                                                                            \
    M(LinearInterpMode_e)

/// Calls M(T) for each type whose values text fields show and take.
#define VELDRAW_FOR_EACH_TEXT_FIELD_TYPE(M)                                                                            \
    M(int)                                                                                                             \
    M(long long)                                                                                                       \
    M(double)                                                                                                          \
    M(std::string)

/// Calls M(T) for each type of which there may be a line edit, that of an editable combo box among them.
#define VELDRAW_FOR_EACH_LINE_EDIT_TYPE(M)                                                                             \
    VELDRAW_FOR_EACH_TEXT_FIELD_TYPE(M)                                                                                \
    VELDRAW_FOR_EACH_CHOICE_TYPE(M)

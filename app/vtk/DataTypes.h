#pragma once

#include "platform/vdsdkbase/VelUtilTypes.h"

namespace veldraw::app {

/// VTK's number for a kernel data type: VTK_FLOAT for FieldDataType_Float and so on.
int vtkTypeOf(FieldDataType_e type);

/// Bytes of one value; 0 for bits.
int bytesOf(FieldDataType_e type);

} // namespace veldraw::app
